#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Shortens what a CRC-32 is made of, by carry-less multiplication: V. Gopal and others, "Fast CRC
/// Computation for Generic Polynomials Using PCLMULQDQ Instruction".

/// Whether this processor can.
bool CanFold();

inline constexpr size_t kFoldedBlock = 16;
inline constexpr size_t kLeastToFold = 4 * kFoldedBlock;

using FoldedBytes = std::array<char, kFoldedBlock>;

/// Sixteen bytes that, from the value 0, lead to the same value as the given ones from `value`; there must be
/// whole blocks of them, kLeastToFold at least.
FoldedBytes FoldCRC32(uint32_t value, std::string_view bytes);
