#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "base/Text.h"
#include "platform/Processes.h"
#include "vekcoreapi_export.h"

struct Platform;
class IVekProcess;
class IVekScriptObject;

/// Receives what a program writes, one line at a time, while the program runs. [build thread]
class IVekProcessEvents {
 public:
  virtual ~IVekProcessEvents() = default;
  virtual void OnStdOutData(IVekProcess& process, std::string_view data) = 0;
  virtual void OnStdErrData(IVekProcess& process, std::string_view data) = 0;

  /// Brackets lines that came together; a log may take them in one go.
  virtual void BeginBurst() {}
  virtual void EndBurst() {}
};

/// A program to run. What is referred to must outlive the run. [build thread]
class IVekProcess {
 public:
  virtual ~IVekProcess() = default;

  virtual void SetProgramFile(std::string_view file) = 0;
  virtual void SetParameters(std::string_view parameters) = 0;
  virtual void SetStartDirectory(std::string_view folder) = 0;  // empty: the current folder
  virtual void SetHideWindow(bool hide) = 0;
  virtual void SetWaitForCompletion(bool wait) = 0;          // default: true
  virtual void SetStopEvent(StopEvent* stop) = 0;            // ends the run with 999; null: none
  virtual void SetTimeoutSeconds(int32_t seconds) = 0;       // likewise when they have passed; 0: never
  virtual void SetCaptureOutput(bool capture) = 0;           // for the event sink; default: true
  virtual void SetDeliverEmptyLines(bool deliver) = 0;       // default: true
  virtual void SetJoinErrorOutput(bool join) = 0;            // standard error comes as standard output
  virtual void SetEventSink(IVekProcessEvents* events) = 0;  // null: nothing is captured

  /// Runs the program and answers its exit code: 999 when it was stopped, 0 for one that is not waited for.
  /// Raises EVekError, which names the program and says why, when it cannot be started.
  virtual int32_t Run() = 0;

  /// The view that scripts have of it: ProgramFile, Parameters, StartDirectory, HideWindow and
  /// WaitForCompletion to read, and the method Terminate().
  virtual IVekScriptObject& ScriptObject() = 0;
};

VEK_API std::unique_ptr<IVekProcess> CreateVekProcess(const Platform& platform);

/// Runs a program without events; `output` receives the lines of both streams where it is given. Answers and
/// raises as IVekProcess::Run. [build thread]
VEK_API int32_t RunProcess(const Platform& platform, std::string_view program, std::string_view parameters,
                           bool hideWindow, bool waitForCompletion, std::string_view startDirectory,
                           StringList* output, StopEvent& stop);
