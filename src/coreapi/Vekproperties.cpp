#include "coreapi/Vekproperties.h"

#include <charconv>
#include <limits>

namespace {

constexpr std::string_view kRoleNames[] = {"plain",    "file",    "folder", "wildcard",
                                           "variable", "fileset", "script"};

std::string Join(std::span<const std::string_view> parts, std::string_view separator) {
  std::string text;
  for (const std::string_view& part : parts) {
    if (&part != parts.data()) text += separator;
    text += part;
  }
  return text;
}

std::string SetToText(const EnumType& type, int64_t bits) {
  std::string text = "[";
  for (size_t ordinal = 0; ordinal < type.values.size(); ++ordinal) {
    if ((bits >> ordinal & 1) == 0) continue;
    if (text.size() > 1) text += ',';
    text += type.values[ordinal];
  }
  return text + ']';
}

std::optional<int64_t> OrdinalOf(const EnumType& type, std::string_view valueName) {
  for (size_t ordinal = 0; ordinal < type.values.size(); ++ordinal) {
    if (SameText(type.values[ordinal], valueName)) return static_cast<int64_t>(ordinal);
  }
  return {};
}

std::optional<int64_t> SetFromText(const EnumType& type, std::string_view text) {
  if (text.size() < 2 || text.front() != '[' || text.back() != ']') return {};
  std::string_view members = Trim(text.substr(1, text.size() - 2));
  int64_t bits = 0;
  while (!members.empty()) {
    const size_t comma = members.find(',');
    const auto ordinal = OrdinalOf(type, Trim(members.substr(0, comma)));
    if (!ordinal) return {};
    bits |= int64_t{1} << *ordinal;
    if (comma == std::string_view::npos) break;
    members.remove_prefix(comma + 1);
    if (members.empty()) return {};
  }
  return bits;
}

std::optional<int64_t> ParseInteger(std::string_view text, int64_t lowest, int64_t highest) {
  int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < lowest || number > highest) return {};
  return number;
}

struct Range {
  int64_t lowest, highest;
};

Range RangeOf(PropertyType type) {
  if (type == PropertyType::Cardinal) return {0, std::numeric_limits<uint32_t>::max()};
  return {std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()};
}

template <class T>
std::optional<PropertyValue> AsValue(const std::optional<T>& value) {
  if (!value) return {};
  return PropertyValue(*value);
}

}  // namespace

std::string_view TextRoleName(TextRole role) { return kRoleNames[static_cast<size_t>(role)]; }

std::optional<bool> ParseBoolean(std::string_view text) {
  if (SameText(text, "True") || text == "-1" || text == "1") return true;
  if (SameText(text, "False") || text == "0") return false;
  return {};
}

std::string PropertyToText(const PropertyRow& row, const PropertyValue& value) {
  switch (row.type) {
    case PropertyType::ByteString:
    case PropertyType::WideString:
      return std::get<std::string>(value);
    case PropertyType::WordBool:
    case PropertyType::Boolean:
      return std::string(BooleanText(std::get<bool>(value)));
    case PropertyType::Integer:
    case PropertyType::Cardinal:
      return std::to_string(std::get<int64_t>(value));
    case PropertyType::Enumeration: {
      const auto ordinal = static_cast<size_t>(std::get<int64_t>(value));
      return std::string(row.enumType().values[ordinal]);
    }
    case PropertyType::Set:
      return SetToText(row.enumType(), std::get<int64_t>(value));
    case PropertyType::StringList: {
      std::string text;
      for (const std::string& line : std::get<StringList>(value)) text.append(line).append("\r\n");
      if (!text.empty()) text.resize(text.size() - 2);
      return text;
    }
    case PropertyType::DateTime:
      return ToIso8601(std::get<TDateTime>(value));
  }
  return {};
}

std::optional<PropertyValue> PropertyFromText(const PropertyRow& row, std::string_view text) {
  const std::string_view trimmed = Trim(text);
  switch (row.type) {
    case PropertyType::ByteString:
    case PropertyType::WideString:
      return PropertyValue(std::string(text));
    case PropertyType::WordBool:
    case PropertyType::Boolean:
      return AsValue(ParseBoolean(trimmed));
    case PropertyType::Integer:
    case PropertyType::Cardinal:
      return AsValue(ParseInteger(trimmed, RangeOf(row.type).lowest, RangeOf(row.type).highest));
    case PropertyType::Enumeration:
      return AsValue(OrdinalOf(row.enumType(), trimmed));
    case PropertyType::Set:
      return AsValue(SetFromText(row.enumType(), trimmed));
    case PropertyType::StringList:
      return PropertyValue(SplitLines(text));
    case PropertyType::DateTime:
      return AsValue(ParseIso8601(trimmed));
  }
  return {};
}

std::string DescribeExpectedText(const PropertyRow& row) {
  switch (row.type) {
    case PropertyType::WordBool:
    case PropertyType::Boolean:
      return "True or False";
    case PropertyType::Integer:
    case PropertyType::Cardinal:
      return "a whole number from " + std::to_string(RangeOf(row.type).lowest) + " to " +
             std::to_string(RangeOf(row.type).highest);
    case PropertyType::Enumeration:
      return "one of " + Join(row.enumType().values, ", ");
    case PropertyType::Set:
      return "a set such as [" + Join(row.enumType().values.subspan(0, 2), ",") + "] of " +
             Join(row.enumType().values, ", ");
    case PropertyType::DateTime:
      return "a date and time such as 2007-03-05T10:00:00";
    case PropertyType::ByteString:
    case PropertyType::WideString:
    case PropertyType::StringList:
      break;
  }
  return "text";
}
