#pragma once

#include <cstdint>

/// A 16-bit boolean: any non-zero value counts as true, and true is written as all bits set.
class WordBool {
 public:
  constexpr WordBool(bool value = false) : raw_(value ? -1 : 0) {}  // NOLINT(google-explicit-constructor)
  static constexpr WordBool FromRaw(int16_t raw) {
    WordBool result;
    result.raw_ = raw;
    return result;
  }

  constexpr operator bool() const { return raw_ != 0; }  // NOLINT(google-explicit-constructor)
  constexpr int16_t Raw() const { return raw_; }

 private:
  int16_t raw_;
};
