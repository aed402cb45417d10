#include "platform/posix/system/InterruptWatch.h"

#include <atomic>
#include <cerrno>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/posix/processes/PosixProcessSession.h"

namespace {

// A signal handler reaches nothing but globals.
std::atomic<sem_t*> signalEvent = nullptr;
std::atomic<bool> wasInterrupted = false;

extern "C" void HandleInterrupt(int signal) {
  const int reason = errno;
  if (wasInterrupted.exchange(true)) {
    // A terminal that goes away may say so twice.
    if (signal == SIGHUP) return;
    PosixProcessSession::KillCurrentGroup();
    _exit(kStoppedByUser);
  }
  if (sem_t* event = signalEvent) sem_post(event);
  errno = reason;
}

}  // namespace

InterruptWatch::InterruptWatch(std::function<void()> handler) {
  sem_init(&event_, 0, 0);
  wasInterrupted = false;
  signalEvent = &event_;
  StartThread(std::move(handler));
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
  ended_ = true;
  sem_post(&event_);
  thread_.join();
  signalEvent = nullptr;
  sem_destroy(&event_);
}

void InterruptWatch::StartThread(std::function<void()> handler) {
  try {
    thread_ = std::thread([this, call = std::move(handler)] {
      for (bool called = false; !ended_;) {
        while (sem_wait(&event_) != 0) continue;
        if (wasInterrupted && !std::exchange(called, true)) call();
      }
    });
  } catch (const std::system_error& error) {
    sem_destroy(&event_);
    throw std::system_error(error.code(), "cannot start the thread that waits for Ctrl-C");
  }
}

bool InterruptWatch::WasInterrupted() { return wasInterrupted; }
