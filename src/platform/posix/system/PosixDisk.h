#pragma once

#include "platform/Disk.h"
#include "platform/posix/paths/PosixPaths.h"

class PosixDisk final : public Disk {
 public:
  explicit PosixDisk(PosixPaths& paths) : paths_(paths) {}
  SysResult GetSpace(std::string_view path, DiskSpace& space) override;

 private:
  PosixPaths& paths_;
};
