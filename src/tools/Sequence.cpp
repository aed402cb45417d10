#include "tools/Sequence.h"

namespace {

// So many steps for each thread may wait for their end.
constexpr size_t kAhead = 64;

}  // namespace

Sequence::Sequence(unsigned threads) {
  for (unsigned i = 0; threads > 1 && i < threads; ++i) threads_.emplace_back([this] { Work(); });
}

Sequence::~Sequence() {
  Drain();
  {
    const std::lock_guard lock(mutex_);
    quit_ = true;
  }
  added_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void Sequence::Add(Half work, Half end) {
  if (threads_.empty()) {
    if (work) work();
    if (end) end();
    return;
  }
  const bool hasWork = static_cast<bool>(work);
  auto step = std::make_shared<Step>(std::move(work), std::move(end), !hasWork);
  {
    const std::lock_guard lock(mutex_);
    steps_.push_back(step);
    if (hasWork) open_.push_back(std::move(step));
  }
  if (hasWork) added_.notify_one();
  for (;;) {
    {
      const std::lock_guard lock(mutex_);
      const bool isFull = steps_.size() > kAhead * threads_.size();
      if (steps_.empty() || (!steps_.front()->isDone && !isFull)) return;
    }
    EndFirst();
  }
}

void Sequence::Drain() {
  for (;;) {
    {
      const std::lock_guard lock(mutex_);
      if (steps_.empty()) return;
    }
    EndFirst();
  }
}

void Sequence::EndFirst() {
  std::unique_lock lock(mutex_);
  const std::shared_ptr<Step> step = steps_.front();
  done_.wait(lock, [&] { return step->isDone; });
  steps_.pop_front();
  lock.unlock();
  if (step->end) step->end();
}

void Sequence::Work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    added_.wait(lock, [this] { return quit_ || !open_.empty(); });
    if (open_.empty()) return;
    const std::shared_ptr<Step> step = std::move(open_.front());
    open_.pop_front();
    lock.unlock();
    step->work();
    lock.lock();
    step->isDone = true;
    done_.notify_one();
  }
}
