#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

/// Steps with two halves: work that several threads share, and an end that is run on the thread that adds the
/// steps, in the order in which they were added. What is reported at the ends is thus the same with any
/// number of threads.
class Sequence {
 public:
  using Half = std::function<void()>;

  /// Without threads, and with one, each step is done as it is added.
  explicit Sequence(unsigned threads);
  ~Sequence();
  Sequence(const Sequence&) = delete;
  Sequence& operator=(const Sequence&) = delete;

  /// Either half may be empty. No half may throw or add further steps.
  void Add(Half work, Half end);

  /// Waits until all steps are done.
  void Drain();

 private:
  struct Step {
    Half work, end;
    bool isDone;
  };

  void Work();
  void EndFirst();

  std::mutex mutex_;
  std::condition_variable added_, done_;
  std::deque<std::shared_ptr<Step>> steps_;  // not yet ended
  std::deque<std::shared_ptr<Step>> open_;   // not yet begun
  bool quit_ = false;
  std::vector<std::thread> threads_;
};
