#include "textini/Vekconversions.h"

#include <charconv>
#include <limits>
#include <type_traits>

#include "base/Text.h"

namespace {

bool TakePrefix(std::string_view& text, std::string_view prefix) {
  if (!SameText(text.substr(0, prefix.size()), prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// `Unsigned` has as many bits as the number.
template <class Unsigned>
std::optional<std::make_signed_t<Unsigned>> ToInteger(std::string_view text) {
  using Number = std::make_signed_t<Unsigned>;
  text = Trim(text);
  const bool isNegative = TakePrefix(text, "-");
  if (!isNegative) TakePrefix(text, "+");
  const bool isHex = TakePrefix(text, "0x") || TakePrefix(text, "$");
  Unsigned magnitude = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, magnitude, isHex ? 16 : 10);
  if (error != std::errc() || stop != end) return {};
  // Hexadecimal stands for the bits, so that 0xFFFFFFFF is -1.
  constexpr auto kMost = static_cast<Unsigned>(std::numeric_limits<Number>::max());
  if (!isHex && magnitude > kMost + (isNegative ? 1 : 0)) return {};
  return static_cast<Number>(isNegative ? 0 - magnitude : magnitude);
}

}  // namespace

std::optional<int32_t> StringToInteger(std::string_view text) { return ToInteger<uint32_t>(text); }
std::optional<int64_t> StringToInteger64(std::string_view text) { return ToInteger<uint64_t>(text); }

std::optional<bool> StringToBoolean(std::string_view text) {
  if (SameText(text, "true")) return true;
  if (SameText(text, "false")) return false;
  text = Trim(text);
  if (!text.starts_with('-')) TakePrefix(text, "+");
  // Names of numbers, as "inf" is one, are none here.
  const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
  if (digits.empty() || !(IsDigit(digits.front()) || digits.front() == '.')) return {};
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return {};
  return number != 0;
}
