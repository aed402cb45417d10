#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>

/// The user's wish to stop. [any thread]
class Interruption {
 public:
  void Signal() {
    const std::lock_guard lock(mutex_);
    flag_ = true;
    changed_.notify_all();
  }

  bool IsSignalled() const { return flag_.load(std::memory_order_relaxed); }

  /// What a copy polls.
  const std::atomic<bool>* Flag() const { return &flag_; }

  /// Waits so long; false when the wait was cut short.
  bool Wait(double seconds) {
    std::unique_lock lock(mutex_);
    return !changed_.wait_for(lock, std::chrono::duration<double>(seconds), [this] { return flag_.load(); });
  }

 private:
  std::atomic<bool> flag_ = false;
  std::mutex mutex_;
  std::condition_variable changed_;
};
