#include "checksum/Vekcrcengine.h"

#include <array>
#include <cstddef>

#include "checksum/Vekcrcfolding.h"

namespace {

// What is looked up at once; table n tells what a byte comes to n bytes further on.
constexpr size_t kSlices = 16;
using Tables = std::array<std::array<uint32_t, 256>, kSlices>;

consteval Tables MakeTables() {
  Tables tables = {};
  for (uint32_t byte = 0; byte < 256; ++byte) {
    uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? kCRCPolynomial : 0);
    tables[0][byte] = value;
  }
  for (size_t slice = 1; slice < kSlices; ++slice) {
    for (size_t byte = 0; byte < 256; ++byte) {
      const uint32_t nearer = tables[slice - 1][byte];
      tables[slice][byte] = tables[0][nearer & 0xFF] ^ (nearer >> 8);
    }
  }
  return tables;
}

constexpr Tables kTables = MakeTables();

constexpr uint8_t Byte(char c) { return static_cast<uint8_t>(c); }

}  // namespace

uint32_t UpdateCRC32ByTables(uint32_t value, std::string_view bytes) {
  for (; bytes.size() >= kSlices; bytes.remove_prefix(kSlices)) {
    uint32_t next = 0;
    for (size_t i = 0; i < kSlices; ++i) {
      const uint32_t carried = i < sizeof value ? value >> (8 * i) & 0xFF : 0;
      next ^= kTables[kSlices - 1 - i][Byte(bytes[i]) ^ carried];
    }
    value = next;
  }
  for (const char c : bytes) value = kTables[0][(value ^ Byte(c)) & 0xFF] ^ (value >> 8);
  return value;
}

uint32_t UpdateCRC32(uint32_t value, std::string_view bytes) {
  static const bool kCanFold = CanFold();
  if (!kCanFold || bytes.size() < kLeastToFold) return UpdateCRC32ByTables(value, bytes);
  const size_t folded = bytes.size() / kFoldedBlock * kFoldedBlock;
  const FoldedBytes rest = FoldCRC32(value, bytes.substr(0, folded));
  return UpdateCRC32ByTables(UpdateCRC32ByTables(0, {rest.data(), rest.size()}), bytes.substr(folded));
}
