#pragma once

#include <memory>
#include <sys/types.h>

#include "platform/Processes.h"
#include "platform/RunningProcess.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/processes/PosixProcessLaunch.h"

struct ChildStreams;
struct ProcessCommand;

class PosixProcesses final : public Processes {
 public:
  explicit PosixProcesses(PosixPaths& paths) : paths_(paths) {}

  SysResult Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                int32_t& exitCode) override;
  SysResult Start(const ProcessSetup& setup) override;
  std::string StartAdvice(Win32Error code) override;

  /// Starts a command that was found already, leaves it running, and answers what it became.
  SysResult StartWatched(ProcessCommand command, const std::string& startDirectory,
                         std::unique_ptr<RunningProcess>& process);

 private:
  SysResult Launch(const ProcessSetup& setup, const ChildStreams& streams, ChildLife life, pid_t& child);
  SysResult Launch(ProcessCommand command, const std::string& startDirectory, const ChildStreams& streams,
                   ChildLife life, pid_t& child);

  PosixPaths& paths_;
};
