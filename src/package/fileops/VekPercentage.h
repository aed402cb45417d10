#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

/// The whole part of done / total in per cent; 0 while nothing is to be done.
constexpr int32_t Percentage(uint64_t done, uint64_t total) {
  if (total == 0) return 0;
  // Sizes that leave no room for the factor are large enough to be divided first.
  constexpr uint64_t kLargest = std::numeric_limits<uint64_t>::max() / 100;
  const uint64_t percent = done > kLargest ? done / std::max<uint64_t>(total / 100, 1) : done * 100 / total;
  return static_cast<int32_t>(std::min<uint64_t>(percent, std::numeric_limits<int32_t>::max()));
}
