#include "host/engine/StopControl.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <ranges>
#include <system_error>
#include <utility>

#include "coreapi/Vekactionapi.h"
#include "platform/Clock.h"

namespace {

constexpr double kNever = std::numeric_limits<double>::infinity();
constexpr size_t kAllOfThem = std::numeric_limits<size_t>::max();

constexpr double kPatience = 5;          // seconds that a script gets to end
constexpr double kBetweenTries = 0.125;  // to find one that did not

}  // namespace

StopControl::StopControl(Clock& clock) : clock_(clock) { turn_.lock(); }

StopControl::~StopControl() {
  {
    const std::lock_guard lock(mutex_);
    quit_ = true;
  }
  changed_.notify_all();
  if (watchdog_.joinable()) watchdog_.join();
  turn_.unlock();
}

void StopControl::RequestStop() {
  if (stopRequested_.exchange(true)) return;
  const std::lock_guard lock(mutex_);
  interrupted_ = true;
  nextTry_ = clock_.Seconds() + kPatience;
  TerminateRunning(0);
  try {
    KeepTime();
  } catch (const std::system_error&) {  // then only a script that polls can be stopped
  }
  changed_.notify_all();
}

StopControl::Step::Step(StopControl& control, std::string_view name) : control_(control) {
  const std::lock_guard lock(control_.mutex_);
  control_.steps_.push_back(name);
}

StopControl::Step::~Step() {
  const std::lock_guard lock(control_.mutex_);
  control_.steps_.pop_back();
}

std::string StopControl::RunningStep() const {
  const std::lock_guard lock(mutex_);
  return steps_.empty() ? "" : std::string(steps_.back());
}

void StopControl::OnTimeout(TimeoutHandler handler) {
  const std::lock_guard lock(mutex_);
  onTimeout_ = std::move(handler);
}

void StopControl::KeepTime() {
  const std::lock_guard lock(mutex_);
  if (!watchdog_.joinable()) watchdog_ = std::thread([this] { Watch(); });
}

void StopControl::GoIntoScript() {
  wentIn_ = clock_.Seconds();
  turn_.unlock();
}

void StopControl::ComeBack() { turn_.lock(); }

void StopControl::OnUnstoppable(std::function<void()> handler) {
  const std::lock_guard lock(mutex_);
  onUnstoppable_ = std::move(handler);
}

void StopControl::OnTerminate(std::function<void()> handler) {
  const std::lock_guard lock(mutex_);
  onTerminate_ = std::move(handler);
}

bool StopControl::Wait(double seconds) {
  std::unique_lock lock(mutex_);
  return !changed_.wait_for(lock, std::chrono::duration<double>(seconds), [this] { return Stopped(); });
}

StopControl::Running::Running(StopControl& control, TCustomVekAction& action, std::string_view path,
                              uint32_t timeoutSeconds)
    : control_(control) {
  const std::lock_guard lock(control_.mutex_);
  const double deadline = timeoutSeconds == 0 ? kNever : control_.clock_.Seconds() + timeoutSeconds;
  control_.running_.push_back({&action, path, deadline});
  if (timeoutSeconds != 0) control_.changed_.notify_all();
}

StopControl::Running::~Running() {
  const std::lock_guard lock(control_.mutex_);
  control_.running_.pop_back();
  control_.Renew();
}

bool StopControl::Running::TimedOut() const {
  const std::lock_guard lock(control_.mutex_);
  return control_.running_.back().timedOut;
}

StopControl::Shield::Shield(StopControl& control) : control_(control), outer_(control.Guard(kAllOfThem)) {}
StopControl::Shield::~Shield() { control_.Guard(outer_); }

/// Shields so many of the running actions, at most all; answers how many were.
size_t StopControl::Guard(size_t count) {
  const std::lock_guard lock(mutex_);
  const size_t before = std::exchange(shielded_, std::min(count, running_.size()));
  Renew();
  changed_.notify_all();
  return before;
}

void StopControl::Renew() {
  interrupted_ =
      stopRequested_ || std::ranges::any_of(running_ | std::views::drop(shielded_), &Entry::timedOut);
}

double StopControl::NextLook() const {
  double next = interrupted_ && onUnstoppable_ ? nextTry_ : kNever;
  for (const Entry& entry : running_ | std::views::drop(shielded_)) {
    if (!entry.timedOut) next = std::min(next, entry.deadline);
  }
  return next;
}

/// The watchdog's thread: sleeps to the next deadline.
void StopControl::Watch() {
  std::unique_lock lock(mutex_);
  while (!quit_) {
    const double next = NextLook();
    if (next == kNever) {
      changed_.wait(lock);
    } else {
      changed_.wait_for(lock, std::chrono::duration<double>(next - clock_.Seconds()));
    }
    MarkExpired();
    EndIfUnstoppable();
  }
}

/// A build thread that is in a script is kept there: its turn is taken.
void StopControl::EndIfUnstoppable() {
  if (!interrupted_ || !onUnstoppable_ || nextTry_ > clock_.Seconds()) return;
  nextTry_ = clock_.Seconds() + kBetweenTries;
  const std::unique_lock turn(turn_, std::try_to_lock);
  if (turn && clock_.Seconds() - wentIn_ >= kPatience) onUnstoppable_();
}

void StopControl::MarkExpired() {
  const double now = clock_.Seconds();
  for (size_t i = shielded_; i < running_.size(); ++i) {
    if (running_[i].timedOut || running_[i].deadline > now) continue;
    running_[i].timedOut = true;
    interrupted_ = true;
    nextTry_ = now + kPatience;
    if (onTimeout_) onTimeout_(running_[i].path, running_[i].action->TimeoutSeconds);
    TerminateRunning(i);
    changed_.notify_all();
  }
}

/// Asks an action and what runs below it to end. The lock is held, so that none of them goes meanwhile.
void StopControl::TerminateRunning(size_t outermost) {
  for (size_t i = running_.size(); i-- > outermost;) {
    if (running_[i].action->CanTerminate()) running_[i].action->TerminateAction();
  }
  if (onTerminate_) onTerminate_();
}
