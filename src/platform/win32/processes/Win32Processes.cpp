#include "platform/win32/processes/Win32Processes.h"

#include "platform/win32/processes/Win32ProcessLaunch.h"
#include "platform/win32/processes/Win32ProcessRun.h"

SysResult Win32Processes::Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                              int32_t& exitCode) {
  if (stop.Take()) {
    exitCode = kProcessStopped;
    return {};
  }
  Win32ProcessRun run(output);
  if (const SysResult result = run.Start(setup); !result) return result;
  exitCode = run.Wait(stop, setup.timeoutSeconds);
  return {};
}

SysResult Win32Processes::Start(const ProcessSetup& setup) {
  LaunchedProcess process;
  const SysResult result = LaunchProcess(setup, {}, process);
  if (result) ResumeThread(process.thread.Get());
  return result;
}
