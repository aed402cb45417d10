#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// A digest; an algorithm fills as many of its first bytes as it has.
using THashArray = std::array<uint8_t, 64>;

/// A hash algorithm over texts and files.
class THashAlg {
 public:
  virtual ~THashAlg() = default;

  const std::string& Title() const { return title_; }
  int32_t DigestSize() const { return digestSize_; }  // bits

  virtual void HashString(std::string_view text, THashArray& digest) const = 0;

  /// False when the file could not be read to its end, for whatever reason.
  virtual bool HashFile(std::string_view fileName, THashArray& digest) const = 0;

  /// The digest in upper-case hexadecimal digits.
  virtual std::string HashToDisplay(const THashArray& digest) const;

  /// Its bytes as they are.
  std::string HashToDataString(const THashArray& digest) const;

  static void ClearHash(THashArray& digest) { digest.fill(0); }

 protected:
  THashAlg(std::string_view title, int32_t digestSize) : title_(title), digestSize_(digestSize) {}

 private:
  std::string title_;
  int32_t digestSize_;
};
