#pragma once

#include "checksum/HashAlgMD5Engine_U.h"
#include "checksum/HashAlg_U.h"
#include "checksum/Vekfileblocks.h"

/// MD5 of texts and of the platform's files.
class THashAlgMD5 final : public THashAlg {
 public:
  THashAlgMD5(const Platform& platform, StopQuestion stopSignalled)
      : THashAlg("MD5", 128), platform_(platform), stopSignalled_(std::move(stopSignalled)) {}

  void HashString(std::string_view text, THashArray& digest) const override;

  /// While it reads, the file may be read by others but not written.
  bool HashFile(std::string_view fileName, THashArray& digest) const override;

 private:
  const Platform& platform_;
  StopQuestion stopSignalled_;
  THashAlgMD5Engine engine_;
};
