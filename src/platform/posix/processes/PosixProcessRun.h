#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <sys/types.h>

#include "platform/OutputLines.h"
#include "platform/Processes.h"
#include "platform/posix/processes/PosixProcessLaunch.h"
#include "platform/posix/processes/PosixProcessSession.h"
#include "platform/posix/system/UniqueFd.h"

/// The pipes for standard output and standard error; none until they are opened.
class OutputPipes {
 public:
  bool Open();
  ChildStreams Streams() const;
  void CloseChildEnds();
  UniqueFd& ReadEnd(size_t stream) { return pipes_[stream].read; }

 private:
  struct Pipe {
    UniqueFd read, write;
  };
  std::array<Pipe, 2> pipes_;
};

/// A program from its start to its end. One that still runs on destruction is ended by force.
class PosixProcessRun {
 public:
  PosixProcessRun(pid_t child, OutputPipes& pipes, ProcessOutput* output);
  ~PosixProcessRun();
  PosixProcessRun(const PosixProcessRun&) = delete;
  PosixProcessRun& operator=(const PosixProcessRun&) = delete;

  /// Waits for the end and answers the exit code.
  int32_t Wait(StopEvent& stop, uint32_t timeoutSeconds);

 private:
  using Clock = std::chrono::steady_clock;
  enum class Phase { Running, Asked, Forced };  // to end

  struct Stream {
    UniqueFd& pipe;
    void (ProcessOutput::*deliver)(std::string_view line);
    OutputLines lines = {};
  };

  void WaitForSomething(StopEvent& stop);
  bool Finished() const;
  bool LookForEnd() const;
  void GoOn();
  int Patience() const;
  size_t ReadOnce(Stream& stream);
  void Drain(Stream& stream);
  int32_t Reap();

  const pid_t child_;
  ProcessOutput* const output_;
  PosixProcessSession session_;
  std::array<Stream, 2> streams_;
  UniqueFd childEnd_;  // readable once the program has ended; none where the system is too old
  UniqueFd wake_;
  Phase phase_ = Phase::Running;
  Clock::time_point deadline_ = Clock::time_point::max();
  bool ended_ = false;
  bool reaped_ = false;
};
