#include "host/expressions/VariableName.h"

#include "base/Text.h"

namespace {

struct Range {
  char32_t first, last;
};

// Punctuation, symbols and blanks beyond ASCII, by block.
constexpr Range kNoLetters[] = {{0x80, 0xA9},     {0xAB, 0xB4},     {0xB6, 0xB9},      {0xBB, 0xBF},
                                {0xD7, 0xD7},     {0xF7, 0xF7},     {0x2000, 0x2BFF},  {0x3000, 0x3004},
                                {0x3007, 0x3020}, {0xD800, 0xF8FF}, {0xFE10, 0xFE6F},  {0xFEFF, 0xFF0F},
                                {0xFF1A, 0xFF20}, {0xFFE0, 0xFFFF}, {0x1F000, 0x1FAFF}};

bool IsNameCharacter(char32_t c) {
  if (c < 0x80) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("_.-()").find(static_cast<char>(c)) != std::string_view::npos;
  }
  for (const Range& range : kNoLetters) {
    if (c >= range.first && c <= range.last) return false;
  }
  return c < kInvalidByte;
}

}  // namespace

size_t VariableNameLength(std::string_view text) {
  size_t length = 0;
  for (size_t next = 0; next < text.size(); length = next) {
    if (!IsNameCharacter(NextCodePoint(text, next))) break;
  }
  return length;
}
