#pragma once

#include "platform/Disk.h"

class Win32Disk final : public Disk {
 public:
  SysResult GetSpace(std::string_view path, DiskSpace& space) override;
};
