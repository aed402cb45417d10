#pragma once

#include <algorithm>

/// Whether a terminal or a reader would be misled by the character as it stands: controls, line separators,
/// and marks that turn the text's direction or cannot be seen.
inline bool IsDisruptive(char32_t codePoint) {
  constexpr struct {
    char32_t first, last;
  } kRanges[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0x061C, 0x061C}, {0x200E, 0x200F},
                 {0x2028, 0x202E}, {0x2066, 0x2069}, {0xFEFF, 0xFEFF}};
  return std::ranges::any_of(kRanges, [codePoint](const auto& range) {
    return codePoint >= range.first && codePoint <= range.last;
  });
}
