#include "platform/TextEncoding.h"

#include "base/Text.h"

namespace {

constexpr bool IsHigh(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool IsLow(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

char32_t UnitAt(std::string_view bytes, size_t position, TextEncoding encoding) {
  const auto first = static_cast<unsigned char>(bytes[position]);
  const auto second = static_cast<unsigned char>(bytes[position + 1]);
  return encoding == TextEncoding::Utf16Le ? char32_t{second} << 8 | first : char32_t{first} << 8 | second;
}

void AppendUnit(std::string& bytes, char32_t unit, TextEncoding encoding) {
  const auto high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
  bytes.push_back(encoding == TextEncoding::Utf16Le ? low : high);
  bytes.push_back(encoding == TextEncoding::Utf16Le ? high : low);
}

/// The half of a surrogate pair that stands at `position` in the form of three bytes, or 0.
char32_t HalfPairAt(std::string_view text, size_t position) {
  if (position + 3 > text.size() || text[position] != '\xED') return 0;
  const auto second = static_cast<unsigned char>(text[position + 1]);
  const auto third = static_cast<unsigned char>(text[position + 2]);
  if (second < 0xA0 || second > 0xBF || (third & 0xC0) != 0x80) return 0;
  return 0xD000 | char32_t{second & 0x3Fu} << 6 | char32_t{third & 0x3Fu};
}

}  // namespace

TextEncoding EncodingOf(std::string_view contents) {
  if (contents.starts_with("\xFF\xFE")) return TextEncoding::Utf16Le;
  return contents.starts_with("\xFE\xFF") ? TextEncoding::Utf16Be : TextEncoding::Plain;
}

std::string DecodeUtf16(std::string_view bytes, TextEncoding encoding) {
  std::string text;
  text.reserve(bytes.size());
  size_t i = 0;
  while (i + 1 < bytes.size()) {
    char32_t c = UnitAt(bytes, i, encoding);
    i += 2;
    if (IsHigh(c) && i + 1 < bytes.size()) {
      if (const char32_t low = UnitAt(bytes, i, encoding); IsLow(low)) {
        c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        i += 2;
      }
    }
    AppendUtf8(text, c);
  }
  return text;
}

std::string EncodeUtf16(std::string_view text, TextEncoding encoding) {
  std::string bytes;
  bytes.reserve(text.size() * 2);
  for (size_t i = 0; i < text.size();) {
    if (const char32_t half = HalfPairAt(text, i)) {
      AppendUnit(bytes, half, encoding);
      i += 3;
      continue;
    }
    char32_t c = NextCodePoint(text, i);
    if (c >= kInvalidByte) c = 0xFFFD;
    if (c < 0x10000) {
      AppendUnit(bytes, c, encoding);
      continue;
    }
    AppendUnit(bytes, 0xD800 + ((c - 0x10000) >> 10), encoding);
    AppendUnit(bytes, 0xDC00 + ((c - 0x10000) & 0x3FF), encoding);
  }
  return bytes;
}
