#pragma once

#include <cstdint>
#include <string_view>

/// CRC-32 of ISO 3309 and IEEE 802.3, as zip and zlib use it: reflected polynomial 0xEDB88320. The value
/// starts with kCRCStart, and its complement is the checksum.

inline constexpr uint32_t kCRCPolynomial = 0xEDB88320;
inline constexpr uint32_t kCRCStart = 0xFFFFFFFF;

/// The value after further bytes.
uint32_t UpdateCRC32(uint32_t value, std::string_view bytes);

/// The same by tables alone, for processors without carry-less multiplication.
uint32_t UpdateCRC32ByTables(uint32_t value, std::string_view bytes);
