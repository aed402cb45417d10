#include "coreapi/Vekvariant.h"

#include <charconv>
#include <cmath>

#include "base/Text.h"
#include "coreapi/Vekproperties.h"

namespace {

template <class Number>
std::optional<Variant> ParseNumber(std::string_view text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return {};
  return Variant(number);
}

}  // namespace

std::string_view VariantTypeName(const Variant& value) {
  constexpr std::string_view kNames[] = {"String", "String",   "Integer", "Boolean",
                                         "Float",  "DateTime", "Object"};
  return kNames[value.index()];
}

std::string FloatToText(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, value).ptr;
  return {text, end};
}

std::string VariantToText(const Variant& value) {
  struct {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(int64_t number) const { return std::to_string(number); }
    std::string operator()(bool truth) const { return std::string(BooleanText(truth)); }
    std::string operator()(double number) const { return FloatToText(number); }
    std::string operator()(TDateTime time) const { return ToIso8601(time); }
    std::string operator()(IVekScriptObject*) const { return {}; }
  } toText;
  return std::visit(toText, value);
}

std::optional<Variant> VariantFromText(std::string_view typeName, std::string_view text) {
  if (SameText(typeName, "String")) return Variant(std::string(text));
  const std::string_view trimmed = Trim(text);
  if (SameText(typeName, "Integer")) return ParseNumber<int64_t>(trimmed);
  if (SameText(typeName, "Float")) return ParseNumber<double>(trimmed);
  if (SameText(typeName, "Boolean")) {
    const auto truth = ParseBoolean(trimmed);
    return truth ? std::optional(Variant(*truth)) : std::nullopt;
  }
  if (SameText(typeName, "DateTime")) {
    const auto time = ParseIso8601(trimmed);
    return time ? std::optional(Variant(*time)) : std::nullopt;
  }
  return {};
}

bool IsTrue(const Variant& value) {
  struct {
    bool operator()(std::monostate) const { return false; }
    bool operator()(const std::string& text) const { return !text.empty(); }
    bool operator()(int64_t number) const { return number != 0; }
    bool operator()(bool truth) const { return truth; }
    bool operator()(double number) const { return number != 0 && !std::isnan(number); }
    bool operator()(TDateTime) const { return true; }
    bool operator()(const IVekScriptObject* object) const { return object != nullptr; }
  } isTrue;
  return std::visit(isTrue, value);
}
