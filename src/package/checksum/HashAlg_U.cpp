#include "checksum/HashAlg_U.h"

std::string THashAlg::HashToDisplay(const THashArray& digest) const {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const char c : HashToDataString(digest)) {
    const auto byte = static_cast<uint8_t>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string THashAlg::HashToDataString(const THashArray& digest) const {
  return {digest.begin(), digest.begin() + digestSize_ / 8};
}
