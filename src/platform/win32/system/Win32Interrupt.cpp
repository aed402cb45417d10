#include <atomic>
#include <mutex>

#include "platform/win32/system/Win32Console.h"

namespace {

// The system calls a plain function, so what it needs lies here.
std::mutex handlerGuard;
std::function<void()> currentHandler;
std::atomic<int> interrupts = 0;

/// Called on a thread that the system makes for each event.
BOOL WINAPI OnConsoleEvent(DWORD event) {
  if (++interrupts > 1) TerminateProcess(GetCurrentProcess(), kStoppedByUser);
  {
    const std::lock_guard lock(handlerGuard);
    if (currentHandler) currentHandler();
  }
  // After these the system ends the process as soon as this returns; the build needs the seconds it gives.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return TRUE;
}

class Win32InterruptGuard final : public Console::InterruptGuard {
 public:
  explicit Win32InterruptGuard(std::function<void()> handler) {
    const std::lock_guard lock(handlerGuard);
    currentHandler = std::move(handler);
    interrupts = 0;
    SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
  }
  Win32InterruptGuard(const Win32InterruptGuard&) = delete;
  Win32InterruptGuard& operator=(const Win32InterruptGuard&) = delete;

  /// Waits for a handler that runs.
  ~Win32InterruptGuard() override {
    SetConsoleCtrlHandler(OnConsoleEvent, FALSE);
    const std::lock_guard lock(handlerGuard);
    currentHandler = nullptr;
  }
};

}  // namespace

std::unique_ptr<Console::InterruptGuard> Win32Console::OnInterrupt(std::function<void()> handler) {
  return std::make_unique<Win32InterruptGuard>(std::move(handler));
}
