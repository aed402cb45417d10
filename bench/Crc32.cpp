// What the CRC-32 of a file costs at least, reading included: vek_crc32 FILE prints it. Blocks are folded by
// carry-less multiplication, and what is left is worked off bit by bit.

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <immintrin.h>
#include <unistd.h>

namespace {

constexpr size_t kRoom = size_t{128} << 10;
constexpr size_t kLanes = 4;
constexpr size_t kStride = kLanes * sizeof(__m128i);

uint32_t BitByBit(uint32_t value, const unsigned char* bytes, size_t count) {
  for (size_t i = 0; i < count; ++i) {
    value ^= bytes[i];
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) * 0xEDB88320u);
  }
  return value;
}

__m128i Fold(__m128i block, long long low, long long high, __m128i there) {
  const __m128i factors = _mm_set_epi64x(high, low);
  return _mm_xor_si128(there, _mm_xor_si128(_mm_clmulepi64_si128(block, factors, 0x00),
                                            _mm_clmulepi64_si128(block, factors, 0x11)));
}

/// `count` is a multiple of the stride.
uint32_t Folded(uint32_t value, const unsigned char* bytes, size_t count) {
  const auto load = [bytes](size_t at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + at));
  };
  __m128i lanes[kLanes];
  for (size_t i = 0; i < kLanes; ++i) lanes[i] = load(i * sizeof(__m128i));
  lanes[0] = _mm_xor_si128(lanes[0], _mm_cvtsi32_si128(static_cast<int>(value)));
  for (size_t at = kStride; at < count; at += kStride) {
    for (size_t i = 0; i < kLanes; ++i)
      lanes[i] = Fold(lanes[i], 0x154442bd4, 0x1c6e41596, load(at + i * sizeof(__m128i)));
  }
  for (size_t i = 1; i < kLanes; ++i) lanes[i] = Fold(lanes[i - 1], 0x1751997d0, 0x0ccaa009e, lanes[i]);
  unsigned char rest[sizeof(__m128i)];
  std::memcpy(rest, &lanes[kLanes - 1], sizeof rest);
  return BitByBit(0, rest, sizeof rest);
}

}  // namespace

int main(int argc, char** argv) {
  const int file = argc == 2 ? open(argv[1], O_RDONLY) : -1;
  if (file < 0) return 2;
  alignas(64) static unsigned char buffer[kRoom];
  uint32_t value = 0xFFFFFFFF;
  for (ssize_t got; (got = read(file, buffer, kRoom)) > 0;) {
    const auto count = static_cast<size_t>(got);
    const size_t whole = count / kStride * kStride;
    if (whole != 0) value = Folded(value, buffer, whole);
    value = BitByBit(value, buffer + whole, count - whole);
  }
  std::printf("%08X\n", ~value);
  return 0;
}
