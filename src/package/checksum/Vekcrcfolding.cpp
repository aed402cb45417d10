#include "checksum/Vekcrcfolding.h"

#if __has_include(<immintrin.h>)

#include <immintrin.h>

#include "checksum/Vekcrcengine.h"

#define VEK_CARRY_LESS __attribute__((target("pclmul,sse2")))

namespace {

/// The power of x, modulo the polynomial, as a factor for reflected numbers.
constexpr int64_t Power(int exponent) {
  uint32_t value = 0x80000000;
  for (; exponent > 0; --exponent) value = (value >> 1) ^ ((value & 1) != 0 ? kCRCPolynomial : 0);
  return static_cast<int64_t>(value) << 1;
}

VEK_CARRY_LESS inline __m128i Load(const char* bytes) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

/// The factors that carry a block over so many bytes.
template <int bytes>
VEK_CARRY_LESS inline __m128i Factors() {
  constexpr int64_t kHigh = Power(bytes * 8 - 32), kLow = Power(bytes * 8 + 32);
  return _mm_set_epi64x(kHigh, kLow);
}

/// Adds a block, carried over that distance, to the one that stands there.
VEK_CARRY_LESS inline __m128i Fold(__m128i block, __m128i factors, __m128i there) {
  const __m128i low = _mm_clmulepi64_si128(block, factors, 0x00);
  const __m128i high = _mm_clmulepi64_si128(block, factors, 0x11);
  return _mm_xor_si128(_mm_xor_si128(low, high), there);
}

}  // namespace

bool CanFold() { return __builtin_cpu_supports("pclmul") != 0 && __builtin_cpu_supports("sse2") != 0; }

VEK_CARRY_LESS FoldedBytes FoldCRC32(uint32_t value, std::string_view bytes) {
  // Four blocks side by side keep the multiplier busy.
  constexpr int kLanes = 4;
  constexpr int kStride = kLanes * static_cast<int>(kFoldedBlock);
  __m128i lanes[kLanes];
  const char* next = bytes.data();
  const char* const end = next + bytes.size();
  for (__m128i& lane : lanes) {
    lane = Load(next);
    next += kFoldedBlock;
  }
  lanes[0] = _mm_xor_si128(lanes[0], _mm_cvtsi32_si128(static_cast<int>(value)));

  const __m128i far = Factors<kStride>();
  for (; end - next >= kStride; next += kStride) {
    for (int i = 0; i < kLanes; ++i) lanes[i] = Fold(lanes[i], far, Load(next + i * int{kFoldedBlock}));
  }
  const __m128i near = Factors<int{kFoldedBlock}>();
  __m128i folded = lanes[0];
  for (int i = 1; i < kLanes; ++i) folded = Fold(folded, near, lanes[i]);
  for (; next != end; next += kFoldedBlock) folded = Fold(folded, near, Load(next));

  FoldedBytes result;
  _mm_storeu_si128(reinterpret_cast<__m128i*>(result.data()), folded);
  return result;
}

#else

bool CanFold() { return false; }
FoldedBytes FoldCRC32(uint32_t /*value*/, std::string_view /*bytes*/) { return {}; }

#endif
