#pragma once

#include "platform/Shell.h"

class Win32Shell final : public Shell {
 public:
  SysResult Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) override;
};
