#include "platform/posix/system/InterruptWatch.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

#include "platform/posix/processes/PosixProcessSession.h"

namespace {

// What the event's counter grows by: it tells an interrupt from the end of the watch.
constexpr uint64_t kInterrupt = 1, kEnd = uint64_t{1} << 32;

// A signal handler reaches nothing but globals.
std::atomic<int> signalEvent = -1;
std::atomic<bool> wasInterrupted = false;

void Post(int event, uint64_t what) {
  [[maybe_unused]] const ssize_t sent = write(event, &what, sizeof what);
}

extern "C" void HandleInterrupt(int signal) {
  const int reason = errno;
  if (wasInterrupted.exchange(true)) {
    // A terminal that goes away may say so twice.
    if (signal == SIGHUP) return;
    PosixProcessSession::KillCurrent();
    _exit(kStoppedByUser);
  }
  Post(signalEvent, kInterrupt);
  errno = reason;
}

void Wait(int event, const std::function<void()>& handler) {
  for (uint64_t count = 0; count < kEnd;) {
    const ssize_t size = read(event, &count, sizeof count);
    if (size != sizeof count) count = 0;
    if ((count & (kEnd - 1)) != 0) handler();
  }
}

}  // namespace

InterruptWatch::InterruptWatch(std::function<void()> handler) : event_(eventfd(0, EFD_CLOEXEC)) {
  wasInterrupted = false;
  signalEvent = event_.Get();
  thread_ = std::thread([event = event_.Get(), call = std::move(handler)] { Wait(event, call); });
  struct sigaction action = {};
  action.sa_handler = HandleInterrupt;
  action.sa_flags = SA_RESTART;
  for (size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], &action, &old_[i]);
    // Started in the background, or to outlive its terminal.
    if (old_[i].sa_handler == SIG_IGN) sigaction(kSignals[i], &old_[i], nullptr);
  }
}

InterruptWatch::~InterruptWatch() {
  for (size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &old_[i], nullptr);
  Post(event_.Get(), kEnd);
  thread_.join();
  signalEvent = -1;
}

bool InterruptWatch::WasInterrupted() { return wasInterrupted; }
