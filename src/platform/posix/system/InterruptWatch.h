#pragma once

#include <array>
#include <atomic>
#include <csignal>
#include <functional>
#include <semaphore.h>
#include <thread>

#include "platform/Console.h"

/// Turns SIGINT, SIGTERM and SIGHUP into one call on a thread that waits for them; there is one watch at a
/// time. A signal that this program was started to ignore stays ignored. Raises std::system_error when there
/// is no thread to be had.
class InterruptWatch final : public Console::InterruptGuard {
 public:
  explicit InterruptWatch(std::function<void()> handler);
  ~InterruptWatch() override;
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  /// Whether the watch that was started last has seen an interrupt.
  static bool WasInterrupted();

 private:
  static constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

  void StartThread(std::function<void()> handler);

  std::array<struct sigaction, kSignals.size()> old_ = {};
  sem_t event_ = {};  // takes no descriptor, of which there may be none left
  std::atomic<bool> ended_ = false;
  std::thread thread_;
};
