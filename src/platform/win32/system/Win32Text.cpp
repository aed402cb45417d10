#include "platform/win32/system/Win32Text.h"

#include "base/Text.h"

namespace {

constexpr bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
constexpr bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

void AppendUtf16(std::wstring& text, char32_t c) {
  if (c >= 0x10000) {
    text += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
    c = 0xDC00 + ((c - 0x10000) & 0x3FF);
  }
  text += static_cast<wchar_t>(c);
}

/// The half of a pair that three bytes at `position` stand for, or 0.
char32_t LoneSurrogate(std::string_view text, size_t position) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[position + i]); };
  if (position + 3 > text.size() || byte(0) != 0xED || byte(1) < 0xA0 || byte(1) > 0xBF) return 0;
  if ((byte(2) & 0xC0) != 0x80) return 0;
  return 0xD000 | static_cast<char32_t>(byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
}

}  // namespace

std::string FromWide(std::wstring_view text) {
  std::string result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
    }
    AppendUtf8(result, c);
  }
  return result;
}

std::optional<std::wstring> ToWide(std::string_view text) {
  std::wstring result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    if (const char32_t half = LoneSurrogate(text, i)) {
      // Two halves side by side are the second spelling of a pair, and a name has one only.
      if (IsLowSurrogate(half) && !result.empty() && IsHighSurrogate(result.back())) return std::nullopt;
      result += static_cast<wchar_t>(half);
      i += 3;
      continue;
    }
    const char32_t c = NextCodePoint(text, i);
    if (c >= kInvalidByte) return std::nullopt;
    AppendUtf16(result, c);
  }
  return result;
}

std::wstring ToWideShown(std::string_view text) {
  std::wstring result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    const char32_t c = NextCodePoint(text, i);
    AppendUtf16(result, c >= kInvalidByte ? U'\uFFFD' : c);
  }
  return result;
}
