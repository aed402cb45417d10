#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

/// What has been hashed so far.
struct MD5_CTX {
  std::array<uint32_t, 4> state;   // A, B, C, D
  uint64_t count;                  // bits
  std::array<uint8_t, 64> buffer;  // what does not fill a block yet
};

/// The MD5 message-digest algorithm (RFC 1321). The caller keeps the context.
class THashAlgMD5Engine {
 public:
  void MD5Init(MD5_CTX& context) const;
  void MD5Update(MD5_CTX& context, std::string_view input) const;

  /// Pads, and ends the message.
  void MD5Final(std::span<uint8_t, 16> digest, MD5_CTX& context) const;
};
