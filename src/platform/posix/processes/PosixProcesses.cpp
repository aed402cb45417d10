#include "platform/posix/processes/PosixProcesses.h"

#include <sys/wait.h>
#include <utility>

#include "platform/posix/paths/DiskChange.h"
#include "platform/posix/processes/PosixProcessCommand.h"
#include "platform/posix/processes/PosixProcessLaunch.h"
#include "platform/posix/processes/PosixProcessRun.h"
#include "platform/posix/processes/PosixRunningProcess.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

/// What programs left running came to this one, and stays in the system's table when it ends.
void ReapOrphans() {
  while (waitpid(-1, nullptr, WNOHANG) > 0) continue;
}

}  // namespace

SysResult PosixProcesses::Run(const ProcessSetup& setup, ProcessOutput* output, StopEvent& stop,
                              int32_t& exitCode) {
  if (stop.Take()) {
    exitCode = kProcessStopped;
    return {};
  }
  ReapOrphans();
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
  ReapOrphans();
  pid_t child = -1;
  if (const SysResult result = Launch(setup, {}, ChildLife::OnItsOwn, child); !result) return result;
  const DiskChange change(paths_);
  return {};
}

SysResult PosixProcesses::StartWatched(ProcessCommand command, const std::string& startDirectory,
                                       std::unique_ptr<RunningProcess>& process) {
  ReapOrphans();
  pid_t child = -1;
  const SysResult result = Launch(std::move(command), startDirectory, {}, ChildLife::OnItsOwn, child);
  if (!result) return result;
  process = PosixRunningProcess::Open(child);
  if (!process) process = std::make_unique<PosixRunningProcess>(UniqueFd());
  const DiskChange change(paths_);
  return {};
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
