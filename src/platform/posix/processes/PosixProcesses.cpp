#include "platform/posix/processes/PosixProcesses.h"

#include <sys/wait.h>
#include <utility>

#include "platform/posix/paths/DiskChange.h"
#include "platform/posix/processes/PosixProcessCommand.h"
#include "platform/posix/processes/PosixProcessLaunch.h"
#include "platform/posix/processes/PosixProcessRun.h"
#include "platform/posix/processes/PosixRunningProcess.h"
#include "platform/posix/system/PosixErrors.h"

SysResult PosixProcesses::Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                              int32_t& exitCode) {
  if (stop.Take()) {
    exitCode = kProcessStopped;
    return {};
  }
  ReapLeftRunning();
  OutputPipes pipes;
  if (output != nullptr && !pipes.Open()) return LastFailure();
  pid_t child = -1;
  if (const SysResult result = Launch(setup, pipes.Streams(), ChildLife::EndsWithUs, child); !result)
    return result;
  pipes.CloseChildEnds();
  // The program may have changed what is known of the disk, however its run ends here.
  const DiskChange change(paths_);
  PosixProcessRun run(child, pipes, output);
  exitCode = run.Wait(stop, setup.timeoutSeconds);
  return {};
}

SysResult PosixProcesses::Start(const ProcessSetup& setup) {
  ReapLeftRunning();
  pid_t child = -1;
  if (const SysResult result = Launch(setup, {}, ChildLife::OnItsOwn, child); !result) return result;
  LeaveRunning(child);
  return {};
}

SysResult PosixProcesses::StartWatched(ProcessCommand command, const std::string& startDirectory,
                                       std::unique_ptr<RunningProcess>& process) {
  ReapLeftRunning();
  pid_t child = -1;
  const SysResult result = Launch(std::move(command), startDirectory, {}, ChildLife::OnItsOwn, child);
  if (!result) return result;
  process = PosixRunningProcess::Open(child);
  LeaveRunning(child);
  return {};
}

void PosixProcesses::LeaveRunning(pid_t child) {
  const DiskChange change(paths_);
  const std::lock_guard lock(mutex_);
  leftRunning_.push_back(child);
}

std::string PosixProcesses::StartAdvice(Win32Error code) {
  if (code != Win32Error::BadExeFormat) return {};
  return "It is a Windows program, and Wine, which would run it, is not installed.";
}

SysResult PosixProcesses::Launch(const ProcessSetup& setup, const ChildStreams& streams, ChildLife life,
                                 pid_t& child) {
  ProcessCommand command;
  const SysResult found = FindCommand(paths_, setup.program, setup.parameters, command);
  command.announce = setup.announce;
  return found ? Launch(std::move(command), setup.startDirectory, streams, life, child) : found;
}

SysResult PosixProcesses::Launch(ProcessCommand command, const std::string& startDirectory,
                                 const ChildStreams& streams, ChildLife life, pid_t& child) {
  std::string folder;
  if (!startDirectory.empty()) {
    const Place place = paths_.LocateFolder(startDirectory);
    if (!place.folder) return SysResult::Failure(Win32Error::Directory);
    folder = place.folder->path;
  }
  return LaunchProcess(std::move(command), folder, streams, life, child);
}

/// What was left running and has ended since would stay in the system's table.
void PosixProcesses::ReapLeftRunning() {
  const std::lock_guard lock(mutex_);
  std::erase_if(leftRunning_, [](pid_t child) { return waitpid(child, nullptr, WNOHANG) != 0; });
}
