#pragma once

#include <cstdint>
#include <string_view>

#include "base/Win32Error.h"

/// Room on a disk, in bytes.
struct DiskSpace {
  uint64_t free = 0;  // what this user may use of it
  uint64_t total = 0;
};

class Disk {
 public:
  virtual ~Disk() = default;

  /// The disk that holds a file or folder.
  virtual SysResult GetSpace(std::string_view path, DiskSpace& space) = 0;
};
