#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "base/Win32Error.h"

/// Asks a running program to stop. An auto-reset event: a signal stays until a run takes it, so one left over
/// from before ends the next run at once unless it is reset. Costs no system resource.
class StopEvent {
 public:
  StopEvent() = default;
  StopEvent(const StopEvent&) = delete;
  StopEvent& operator=(const StopEvent&) = delete;

  /// [any thread]
  void Signal() {
    const std::lock_guard lock(mutex_);
    signalled_ = true;
    if (wake_) wake_();
  }
  void Reset() { Take(); }

  /// Whether it was signalled; it no longer is.
  bool Take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(signalled_, false);
  }

  /// Has a signal call `wake`, on the thread that signals; at once when the event is signalled already. For
  /// who runs a program, one at a time.
  class Watch {
   public:
    Watch(StopEvent& event, std::function<void()> wake) : event_(event) {
      const std::lock_guard lock(event_.mutex_);
      event_.wake_ = std::move(wake);
      if (event_.signalled_) event_.wake_();
    }
    ~Watch() {
      const std::lock_guard lock(event_.mutex_);
      event_.wake_ = nullptr;
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

   private:
    StopEvent& event_;
  };

 private:
  std::mutex mutex_;
  bool signalled_ = false;
  std::function<void()> wake_;
};

/// Receives the command line that the system was given, once the program has been started.
using ProcessAnnouncement = std::function<void(std::string_view commandLine)>;

struct ProcessSetup {
  std::string program = {};         // a file, or a name without a folder, which is looked up along PATH
  std::string parameters = {};      // one text, quoted as on a Windows command line
  std::string startDirectory = {};  // empty: the current folder
  bool hideWindow = false;          // where programs have windows of their own
  uint32_t timeoutSeconds = 0;      // after which a run is stopped as by its event; 0: never
  ProcessAnnouncement announce = {};
};

/// Receives a program's output line by line, without line ends, each stream in its order. Lines may hold
/// bytes that are not UTF-8; one without end comes in pieces. Called on the thread that runs the program; an
/// exception ends the program by force and passes on.
class ProcessOutput {
 public:
  virtual ~ProcessOutput() = default;
  virtual void OnStdOut(std::string_view line) = 0;
  virtual void OnStdErr(std::string_view line) = 0;

  /// Brackets lines that came together.
  virtual void BeginBurst() {}
  virtual void EndBurst() {}
};

/// The bracket as a scope.
class OutputBurst {
 public:
  explicit OutputBurst(ProcessOutput& output) : output_(output) { output_.BeginBurst(); }
  ~OutputBurst() { output_.EndBurst(); }
  OutputBurst(const OutputBurst&) = delete;
  OutputBurst& operator=(const OutputBurst&) = delete;

 private:
  ProcessOutput& output_;
};

/// The exit code of a run that was stopped.
inline constexpr int32_t kProcessStopped = 999;

/// Other programs. They read nothing, inherit no open file, and output that nobody receives goes to this
/// program's standard error.
class Processes {
 public:
  virtual ~Processes() = default;

  /// Starts a program and waits until it has ended and what it wrote has been received; what it left running
  /// is not waited for. A stop ends it and all that it started, politely at first, after five seconds by
  /// force, and answers kProcessStopped. A program that a signal ended answers 128 + its number. Fails when
  /// the program cannot be started: FileNotFound, AccessDenied, BadExeFormat, Directory for the start folder.
  virtual SysResult Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                        int32_t& exitCode) = 0;

  /// Starts a program and leaves it running.
  virtual SysResult Start(const ProcessSetup& setup) = 0;

  /// What a failed start with this code wants, beyond the code's own text; empty when there is nothing to
  /// say.
  virtual std::string StartAdvice(Win32Error /*code*/) { return {}; }
};
