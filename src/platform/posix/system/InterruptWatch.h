#pragma once

#include <array>
#include <csignal>
#include <functional>
#include <thread>

#include "platform/Console.h"
#include "platform/posix/system/UniqueFd.h"

/// Turns SIGINT, SIGTERM and SIGHUP into one call on a thread that waits for them; there is one watch at a
/// time. A signal that this program was started to ignore stays ignored.
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

  std::array<struct sigaction, kSignals.size()> old_ = {};
  UniqueFd event_;
  std::thread thread_;
};
