#pragma once

#include <sys/stat.h>

#include "platform/Entries.h"

/// For less, the kernel's own way gains nothing over reading and writing, and the copy is quickly done.
inline constexpr off_t kLargeFile = off_t{1} << 20;

/// Copies the bytes of an open file into a new, empty one, in chunks: progress is told after each, and the
/// cancel flag ends it with RequestAborted. Holes stay holes; large files are left to the kernel, which may
/// share their blocks.
class Transfer {
 public:
  Transfer(int from, const struct stat& status, int to);
  SysResult Run(const CopyOptions& options);

 private:
  bool Step();
  bool CopyChunk();
  bool SkipHole();
  bool End();

  int from_, to_;
  uint64_t done_ = 0;
  uint64_t total_;
  uint64_t dataEnd_;  // no hole before
  bool inKernel_;
  bool hasHoles_;
  bool atEnd_ = false;
};
