#pragma once

#include <array>
#include <cstdint>

#include "platform/win32/processes/Win32ProcessJob.h"
#include "platform/win32/processes/Win32ProcessLaunch.h"
#include "platform/win32/processes/Win32ProcessPipe.h"

/// A program from its start to its end. One that still runs on destruction is ended by force.
class Win32ProcessRun {
 public:
  explicit Win32ProcessRun(ProcessOutput* output) : output_(output) {}
  ~Win32ProcessRun();
  Win32ProcessRun(const Win32ProcessRun&) = delete;
  Win32ProcessRun& operator=(const Win32ProcessRun&) = delete;

  SysResult Start(const ProcessSetup& setup);

  /// Waits for the end and answers the exit code.
  int32_t Wait(StopEvent& stop, uint32_t timeoutSeconds);

 private:
  enum class Phase { Running, Asked, Forced };  // to end

  void WaitForSomething(StopEvent& stop);
  bool Finished() const;
  void GoOn();
  void Terminate() const;
  DWORD Patience() const;

  ProcessOutput* const output_;
  std::array<Win32ProcessPipe, 2> pipes_{Win32ProcessPipe(&ProcessOutput::OnStdOut),
                                         Win32ProcessPipe(&ProcessOutput::OnStdErr)};
  Win32ProcessJob job_;
  LaunchedProcess child_;
  Handle wake_;
  Phase phase_ = Phase::Running;
  ULONGLONG deadline_ = 0;  // as GetTickCount64 counts; 0: none
  bool inJob_ = false;
  bool ended_ = false;
  bool done_ = true;
};
