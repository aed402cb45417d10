#include "checksum/HashAlgMD5_U.h"

namespace {

std::span<uint8_t, 16> Used(THashArray& digest) { return std::span(digest).first<16>(); }

}  // namespace

void THashAlgMD5::HashString(std::string_view text, THashArray& digest) const {
  MD5_CTX context;
  engine_.MD5Init(context);
  engine_.MD5Update(context, text);
  engine_.MD5Final(Used(digest), context);
}

bool THashAlgMD5::HashFile(std::string_view fileName, THashArray& digest) const {
  MD5_CTX context;
  engine_.MD5Init(context);
  const auto take = [&](std::string_view block) { engine_.MD5Update(context, block); };
  if (!ReadBlocks(platform_, fileName, stopSignalled_, take)) return false;
  engine_.MD5Final(Used(digest), context);
  return true;
}
