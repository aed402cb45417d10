#pragma once

#include "platform/Shell.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/processes/PosixProcesses.h"

struct ProcessCommand;

/// Hands documents to the desktop's opener, to the print queue and to the user's editor; a program is
/// started itself.
class PosixShell final : public Shell {
 public:
  PosixShell(PosixPaths& paths, PosixProcesses& processes) : paths_(paths), processes_(processes) {}

  SysResult Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) override;

 private:
  SysResult FindHandler(const ShellRequest& request, const std::string& file, ProcessCommand& command);

  PosixPaths& paths_;
  PosixProcesses& processes_;
};
