#include "host/scripts/EngineText.h"

#include "base/Text.h"

namespace {

constexpr char32_t kHighSurrogate = 0xD800, kLowSurrogate = 0xDC00, kEscapedByte = 0xDC80;
constexpr char32_t kReplacement = 0xFFFD, kFirstPlaneEnd = 0x10000;

/// The surrogate encoded at `position`, or 0 when there is none.
char32_t SurrogateAt(std::string_view text, size_t position) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[position + i]); };
  if (position + 3 > text.size() || byte(0) != 0xED || byte(1) < 0xA0 || byte(1) > 0xBF) return 0;
  if ((byte(2) & 0xC0u) != 0x80) return 0;
  return 0xD000u | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
}

/// Appends what the surrogate at `position` stands for and moves past it.
void TakeSurrogate(std::string& result, std::string_view text, size_t& position) {
  const char32_t first = SurrogateAt(text, position);
  const char32_t second = SurrogateAt(text, position + 3);
  position += 3;
  if (first < kLowSurrogate && second >= kLowSurrogate) {
    position += 3;
    AppendUtf8(result, kFirstPlaneEnd + ((first - kHighSurrogate) << 10) + (second - kLowSurrogate));
  } else if (first >= kEscapedByte && first <= kLowSurrogate + 0xFF) {
    result += static_cast<char>(first - kLowSurrogate);
  } else {
    AppendUtf8(result, kReplacement);
  }
}

}  // namespace

std::string ToEngineText(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  std::string result;
  result.reserve(text.size() * 3 / 2);
  for (size_t i = 0; i < text.size();) {
    const char32_t c = NextCodePoint(text, i);
    if (c >= kInvalidByte) {
      AppendUtf8(result, kLowSurrogate + (c - kInvalidByte));
    } else if (c >= kFirstPlaneEnd) {
      AppendUtf8(result, kHighSurrogate + ((c - kFirstPlaneEnd) >> 10));
      AppendUtf8(result, kLowSurrogate + ((c - kFirstPlaneEnd) & 0x3FF));
    } else {
      AppendUtf8(result, c);
    }
  }
  return result;
}

std::string FromEngineText(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  std::string result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    if (SurrogateAt(text, i) != 0) {
      TakeSurrogate(result, text, i);
    } else {
      const char32_t c = NextCodePoint(text, i);
      AppendUtf8(result, c >= kInvalidByte ? kReplacement : c);
    }
  }
  return result;
}
