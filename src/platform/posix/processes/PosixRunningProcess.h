#pragma once

#include <memory>
#include <sys/types.h>

#include "platform/RunningProcess.h"
#include "platform/posix/system/UniqueFd.h"

class PosixRunningProcess final : public RunningProcess {
 public:
  explicit PosixRunningProcess(UniqueFd process) : process_(std::move(process)) {}

  /// Null when there is no such process.
  static std::unique_ptr<RunningProcess> Open(pid_t process);

  bool EndsWithin(uint32_t milliseconds) override;
  void Terminate() override;

 private:
  UniqueFd process_;  // readable once it has ended; none when it had before it could be held
};
