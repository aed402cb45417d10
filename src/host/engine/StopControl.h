#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

class Clock;
class TCustomVekAction;

/// Ends a build before its time: at the user's wish, when the log cannot be written, or, for one action and
/// what runs below it, when its time is up. The running actions are asked to terminate; loops poll Stopped.
class StopControl {
 public:
  explicit StopControl(Clock& clock);
  ~StopControl();
  StopControl(const StopControl&) = delete;
  StopControl& operator=(const StopControl&) = delete;

  /// Asks the whole build to stop. [any thread]
  void RequestStop();
  bool StopRequested() const { return stopRequested_.load(std::memory_order_relaxed); }

  /// The build is to stop, or the time of a running action is up. [any thread]
  bool Stopped() const { return interrupted_.load(std::memory_order_relaxed); }

  /// A step that is running, from its start to its end; `name` must outlive it.
  class Step {
   public:
    Step(StopControl& control, std::string_view name);
    ~Step();
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;

   private:
    StopControl& control_;
  };

  /// The name of the innermost step that is running; empty for none. [any thread]
  std::string RunningStep() const;

  /// An action that is running, innermost last; an outer one's time takes in what runs below it.
  class Running {
   public:
    /// `path` must outlive it. `timeoutSeconds` 0: no limit.
    Running(StopControl& control, TCustomVekAction& action, std::string_view path, uint32_t timeoutSeconds);
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    bool TimedOut() const;

   private:
    StopControl& control_;
  };

  /// While it lives, the time-outs that cut running actions short do not concern what is started: it is there
  /// to clean up after them.
  class Shield {
   public:
    explicit Shield(StopControl& control);
    ~Shield();
    Shield(const Shield&) = delete;
    Shield& operator=(const Shield&) = delete;

   private:
    StopControl& control_;
    const size_t outer_;
  };

  /// Called when the time of a running action is up, before it is asked to terminate. [any thread]
  using TimeoutHandler = std::function<void(std::string_view path, uint32_t seconds)>;
  void OnTimeout(TimeoutHandler handler);

  /// Called whenever running actions are asked to terminate; empty for nothing. [any thread]
  void OnTerminate(std::function<void()> handler);

  /// Waits; false when the wait was cut short by a stop.
  bool Wait(double seconds);

  /// Has the time of actions kept from now on; raises std::system_error when there is no thread to be had.
  void KeepTime();

  // The build thread goes into the script engine, which may stay in one call for as long as a script likes,
  // and comes back; meanwhile it touches nothing of the build.
  void GoIntoScript();
  void ComeBack();

  /// Called, in place of the build thread and never to return, when that one has not come back from a script
  /// within five seconds of being asked to. [any thread]
  void OnUnstoppable(std::function<void()> handler);

 private:
  struct Entry {
    TCustomVekAction* action;
    std::string_view path;
    double deadline;  // in the clock's seconds
    bool timedOut = false;
  };

  double NextLook() const;
  void Watch();
  void MarkExpired();
  void Renew();
  size_t Guard(size_t count);
  void EndIfUnstoppable();
  void TerminateRunning(size_t outermost);

  Clock& clock_;

  // Recursive, because what an action does to end may make the log fail, which asks the build to stop.
  mutable std::recursive_mutex mutex_;
  std::condition_variable_any changed_;
  std::vector<Entry> running_;
  size_t shielded_ = 0;  // so many of them do not pass their time-outs on
  std::vector<std::string_view> steps_;
  TimeoutHandler onTimeout_;
  std::function<void()> onTerminate_, onUnstoppable_;
  double nextTry_ = 0;  // to take the build over, once it has been asked to stop
  std::atomic<bool> stopRequested_ = false;
  std::atomic<bool> interrupted_ = false;
  bool quit_ = false;
  std::thread watchdog_;

  // Who holds it acts for the build: the build thread, except while it is in a script.
  std::mutex turn_;
  double wentIn_ = 0;
};
