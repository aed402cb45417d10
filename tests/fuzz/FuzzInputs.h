#pragma once

#include <cstdint>
#include <string>

#include "fuzz/Fuzz.h"

inline constexpr size_t kLargestInput = 4096;

/// The inputs of a row of runs. The number of a run and the seed settle its input, whatever ran before.
class FuzzInputs {
 public:
  FuzzInputs(FuzzFormat format, uint64_t seed);

  /// The format's seeds, then variations.
  std::string Make(uint64_t run) const;

 private:
  FuzzFormat format_;
  uint64_t seed_;
};
