#include "tools/AttributeLetters.h"

#include <algorithm>

#include "platform/FileAttributes.h"

namespace {

constexpr struct {
  char letter;
  uint32_t bit;
  bool isKept;
} kLetters[] = {
    {'R', FileAttribute::ReadOnly, true},
    {'A', FileAttribute::Archive, true},
    {'S', FileAttribute::System, true},
    {'H', FileAttribute::Hidden, true},
    {'N', 0x2000, false},  // not content indexed
    {'T', 0x100, false},   // temporary
    {'C', 0x800, false},   // compressed
    {'E', 0x4000, false},  // encrypted
    {'O', 0x1000, false},  // offline
};

}  // namespace

std::optional<uint32_t> AttributesOfLetters(std::string_view letters) {
  uint32_t bits = 0;
  for (const char c : letters) {
    const char upper = c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
    const auto* row = std::ranges::find_if(kLetters, [&](const auto& r) { return r.letter == upper; });
    if (row == std::end(kLetters)) return {};
    bits |= row->bit;
  }
  return letters.empty() ? std::nullopt : std::optional(bits);
}

uint32_t KeptAttributes() {
  uint32_t bits = 0;
  for (const auto& row : kLetters) bits |= row.isKept ? row.bit : 0;
  return bits;
}
