#pragma once

#include <csignal>
#include <functional>
#include <thread>

#include "platform/Console.h"
#include "platform/posix/UniqueFd.h"

/// Turns SIGINT and SIGTERM into one call on a thread that waits for them; there is one watch at a time.
class InterruptWatch final : public Console::InterruptGuard {
 public:
  explicit InterruptWatch(std::function<void()> handler);
  ~InterruptWatch() override;
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  /// Whether the watch that was started last has seen an interrupt.
  static bool WasInterrupted();

 private:
  struct sigaction oldInterrupt_ = {}, oldTermination_ = {};
  UniqueFd event_;
  std::thread thread_;
};
