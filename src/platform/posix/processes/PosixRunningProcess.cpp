#include "platform/posix/processes/PosixRunningProcess.h"

#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

std::unique_ptr<RunningProcess> PosixRunningProcess::Open(pid_t process) {
  UniqueFd opened(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
  return opened ? std::make_unique<PosixRunningProcess>(std::move(opened)) : nullptr;
}

bool PosixRunningProcess::EndsWithin(uint32_t milliseconds) {
  if (!process_) return true;
  pollfd ended{.fd = process_.Get(), .events = POLLIN, .revents = 0};
  return poll(&ended, 1, static_cast<int>(milliseconds)) > 0;
}

void PosixRunningProcess::Terminate() { syscall(SYS_pidfd_send_signal, process_.Get(), SIGKILL, nullptr, 0); }
