#include "checksum/HashAlgMD5Engine_U.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace {

constexpr size_t kBlock = 64;
constexpr size_t kLengthAt = kBlock - sizeof(uint64_t);

// The integer part of 4294967296 times the absolute sine of 1, 2, ... 64 (radians).
constexpr std::array<uint32_t, 64> kSines = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391,
};

/// What the sixteen steps of a round have in common: the word to begin with and how far the next one is.
struct Round {
  size_t firstWord, stride;
  int shifts[4];
};
constexpr Round kRounds[] = {
    {0, 1, {7, 12, 17, 22}},
    {1, 5, {5, 9, 14, 20}},
    {5, 3, {4, 11, 16, 23}},
    {0, 7, {6, 10, 15, 21}},
};

using State = std::array<uint32_t, 4>;
using Words = std::array<uint32_t, kBlock / sizeof(uint32_t)>;

/// One step. Every step waits for the one before it, whose result is `b`: all that does not need it is added
/// up first.
template <size_t number>
[[gnu::always_inline]] inline void Step(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, const Words& words) {
  constexpr size_t kNumber = number / 16;
  constexpr Round kRound = kRounds[kNumber];
  a += words[(kRound.firstWord + kRound.stride * number) % words.size()] + kSines[number];
  if constexpr (kNumber == 0) {
    a += d ^ (b & (c ^ d));
  } else if constexpr (kNumber == 1) {
    a += c & ~d;  // has no bit in common with the other half of the function
    a += b & d;
  } else if constexpr (kNumber == 2) {
    a += b ^ (c ^ d);
  } else {
    a += c ^ (b | ~d);
  }
  a = b + std::rotl(a, kRound.shifts[number % 4]);
}

template <size_t... numbers>
[[gnu::always_inline]] inline void Steps(State& state, const Words& words, std::index_sequence<numbers...>) {
  // The four words change their parts from step to step.
  const auto part = [&state](size_t which) -> uint32_t& { return state[which % 4]; };
  (Step<numbers>(part(64 - numbers), part(65 - numbers), part(66 - numbers), part(67 - numbers), words), ...);
}

/// Reads numbers of the message, least significant byte first.
template <size_t count>
inline std::array<uint32_t, count> Decode(const uint8_t* bytes) {
  std::array<uint32_t, count> words;
  std::memcpy(words.data(), bytes, sizeof words);
  if constexpr (std::endian::native == std::endian::big) {
    for (uint32_t& word : words) word = __builtin_bswap32(word);
  }
  return words;
}

/// Writes a number so.
template <class Number>
inline void Encode(Number number, uint8_t* bytes) {
  for (size_t i = 0; i < sizeof number; ++i) bytes[i] = static_cast<uint8_t>(number >> (8 * i));
}

/// Takes whole blocks into the state.
void MD5Transform(State& state, const uint8_t* blocks, size_t count) {
  State current = state;
  for (; count != 0; --count, blocks += kBlock) {
    State next = current;
    Steps(next, Decode<16>(blocks), std::make_index_sequence<64>());
    for (size_t i = 0; i < next.size(); ++i) current[i] += next[i];
  }
  state = current;
}

}  // namespace

void THashAlgMD5Engine::MD5Init(MD5_CTX& context) const {
  context = {{0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476}, 0, {}};
}

void THashAlgMD5Engine::MD5Update(MD5_CTX& context, std::string_view input) const {
  const auto* bytes = reinterpret_cast<const uint8_t*>(input.data());
  size_t left = input.size();
  const size_t filled = context.count / 8 % kBlock;
  context.count += uint64_t{left} * 8;

  if (filled != 0) {
    const size_t taken = std::min(left, kBlock - filled);
    std::copy_n(bytes, taken, context.buffer.begin() + filled);
    if (filled + taken < kBlock) return;
    MD5Transform(context.state, context.buffer.data(), 1);
    bytes += taken;
    left -= taken;
  }
  MD5Transform(context.state, bytes, left / kBlock);
  std::copy_n(bytes + left / kBlock * kBlock, left % kBlock, context.buffer.begin());
}

void THashAlgMD5Engine::MD5Final(std::span<uint8_t, 16> digest, MD5_CTX& context) const {
  size_t filled = context.count / 8 % kBlock;
  context.buffer[filled++] = 0x80;
  if (filled > kLengthAt) {
    std::fill(context.buffer.begin() + filled, context.buffer.end(), uint8_t{0});
    MD5Transform(context.state, context.buffer.data(), 1);
    filled = 0;
  }
  std::fill(context.buffer.begin() + filled, context.buffer.end(), uint8_t{0});
  Encode(context.count, context.buffer.data() + kLengthAt);
  MD5Transform(context.state, context.buffer.data(), 1);
  for (size_t i = 0; i < context.state.size(); ++i) Encode(context.state[i], &digest[i * sizeof(uint32_t)]);
}
