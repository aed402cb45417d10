#include <csignal>
#include <fcntl.h>
#include <linux/close_range.h>
#include <unistd.h>

#include "platform/CreatePlatform.h"
#include "platform/posix/processes/PosixProcessSession.h"

StringList StartProgram(int argc, char** argv) {
  // A standard stream that is closed must not become the first file that is opened. What is written to these
  // fails, and is reported as such.
  for (int stream = 0; stream <= 2; ++stream) {
    if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", O_RDONLY) < 0) break;
  }
  // What whoever started this program left open is not for the programs that it starts.
  close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
  // Ignored, as some leave it, it would take the exit codes of child processes away.
  std::signal(SIGCHLD, SIG_DFL);
  return argc > 0 ? StringList(argv + 1, argv + argc) : StringList();
}

void EndProgram(int exitCode) {
  PosixProcessSession::KillCurrent();
  _exit(exitCode);
}
