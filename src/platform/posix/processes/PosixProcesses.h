#pragma once

#include <mutex>
#include <sys/types.h>
#include <vector>

#include "platform/Processes.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/processes/PosixProcessLaunch.h"

struct ChildStreams;

class PosixProcesses final : public Processes {
 public:
  explicit PosixProcesses(PosixPaths& paths) : paths_(paths) {}

  SysResult Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                int32_t& exitCode) override;
  SysResult Start(const ProcessSetup& setup) override;
  std::string StartAdvice(Win32Error code) override;

 private:
  SysResult Launch(const ProcessSetup& setup, const ChildStreams& streams, ChildLife life, pid_t& child);
  void ReapLeftRunning();

  PosixPaths& paths_;
  std::mutex mutex_;
  std::vector<pid_t> leftRunning_;
};
