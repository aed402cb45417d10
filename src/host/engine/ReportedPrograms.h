#pragma once

#include <string>
#include <string_view>

#include "host/log/EventSink.h"
#include "platform/Processes.h"
#include "platform/Shell.h"

/// Is told what other programs do. [build thread]
class ProgramListener {
 public:
  virtual ~ProgramListener() = default;

  /// A program is about to be started.
  virtual void BeforeProgram() = 0;

  /// `startDirectory` is empty for the current folder.
  virtual void OnProgram(std::string_view commandLine, const std::string& startDirectory) = 0;

  /// Brackets what is done with a line of a program's output.
  virtual void BeginLine(ProgramStream stream) = 0;
  virtual void EndLine() = 0;
};

/// The platform's processes, whose starts and lines are told to a listener.
class ReportedProcesses final : public Processes {
 public:
  ReportedProcesses(Processes& real, ProgramListener& listener) : real_(real), listener_(listener) {}

  SysResult Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                int32_t& exitCode) override;
  SysResult Start(const ProcessSetup& setup) override;
  std::string StartAdvice(Win32Error code) override { return real_.StartAdvice(code); }

 private:
  Processes& real_;
  ProgramListener& listener_;
};

/// The same for what the shell starts.
class ReportedShell final : public Shell {
 public:
  ReportedShell(Shell& real, ProgramListener& listener) : real_(real), listener_(listener) {}

  SysResult Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) override;

 private:
  Shell& real_;
  ProgramListener& listener_;
};
