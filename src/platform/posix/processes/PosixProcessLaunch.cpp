#include "platform/posix/processes/PosixProcessLaunch.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "platform/posix/processes/PosixProcessCommand.h"
#include "platform/posix/system/PosixErrors.h"

extern char** environ;

namespace {

constexpr int kNotStarted = 127;

/// All that the child needs, made before it is: until it runs the program it shares this process's memory.
struct ChildPlan {
  const char* file;
  std::vector<char*> arguments;
  const char* folder;  // null: the current one
  ChildStreams streams;
  ChildLife life;
  volatile int error = 0;  // why it did not start
  volatile pid_t process = -1;
};

/// What this program ignores (see PosixConsole) others need as usual, and its handlers are not for them. What
/// was ignored when it started stays so.
void ResetSignals() {
  struct sigaction usual = {}, current = {};
  usual.sa_handler = SIG_DFL;
  for (const int signal : {SIGPIPE, SIGXFSZ}) sigaction(signal, &usual, nullptr);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    if (sigaction(signal, nullptr, &current) != 0 || current.sa_handler == SIG_IGN) continue;
    if (current.sa_handler != SIG_DFL) sigaction(signal, &usual, nullptr);
  }
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// The child: system calls only, down to the one that replaces it.
[[noreturn]] void RunProgram(ChildPlan& plan) {
  plan.process = getpid();
  setsid();
  if (plan.life == ChildLife::EndsWithUs) prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
  const bool ready =
      nothing >= 0 && dup2(nothing, STDIN_FILENO) >= 0 && dup2(plan.streams.out, STDOUT_FILENO) >= 0 &&
      dup2(plan.streams.err, STDERR_FILENO) >= 0 && (plan.folder == nullptr || chdir(plan.folder) == 0);
  if (ready) {
    ResetSignals();
    execve(plan.file, plan.arguments.data(), environ);
  }
  plan.error = errno;
  _exit(kNotStarted);
}

/// Starts what is on its own as nobody's child here: the system hands it on as its parent ends. That one has
/// memory of its own, since a program that shares ours must not share it once more.
[[gnu::noinline]] pid_t StartDetached(ChildPlan& plan) {
  struct {
    int error;
    pid_t process;
  } outcome = {0, -1};
  int ends[2] = {};
  if (pipe2(ends, O_CLOEXEC) != 0) return -1;
  const UniqueFd from(ends[0]), to(ends[1]);
  const pid_t parent = fork();
  if (parent == 0) {
    const pid_t child = vfork();
    if (child == 0) RunProgram(plan);
    outcome = {child < 0 ? errno : plan.error, plan.process};
    _exit(write(to.Get(), &outcome, sizeof outcome) == sizeof outcome ? 0 : kNotStarted);
  }
  if (parent < 0) return parent;
  waitpid(parent, nullptr, 0);
  // Nothing to read when the parent did not come so far.
  fcntl(from.Get(), F_SETFL, O_NONBLOCK);
  const bool isTold = read(from.Get(), &outcome, sizeof outcome) == sizeof outcome;
  plan.error = isTold ? outcome.error : EAGAIN;
  plan.process = outcome.process;
  return parent;
}

/// Starts the child and waits until it runs the program. Not posix_spawn, which spends two system calls on
/// each signal there is.
[[gnu::noinline]] pid_t StartAttached(ChildPlan& plan) {
  const pid_t child = vfork();
  if (child == 0) RunProgram(plan);
  if (child > 0 && plan.error != 0) waitpid(child, nullptr, 0);
  return child;
}

void StartChild(ChildPlan& plan) {
  const bool detached = plan.life == ChildLife::OnItsOwn;
  // What a program has sent away comes to this one as its parents end, and so can be stopped with it.
  prctl(PR_SET_CHILD_SUBREAPER, detached ? 0UL : 1UL);
  sigset_t all, before;
  sigfillset(&all);
  // A handler that ran in the child would work on this process's memory.
  pthread_sigmask(SIG_SETMASK, &all, &before);
  const pid_t child = detached ? StartDetached(plan) : StartAttached(plan);
  if (child < 0) plan.error = errno;
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

int Launch(const ProcessCommand& command, const std::string& folder, const ChildStreams& streams,
           ChildLife life, pid_t& child) {
  ChildPlan plan{command.file.c_str(), {}, folder.empty() ? nullptr : folder.c_str(), streams, life};
  plan.arguments.reserve(command.arguments.size() + 1);
  for (const std::string& argument : command.arguments) {
    plan.arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  plan.arguments.push_back(nullptr);
  StartChild(plan);
  child = plan.process;
  return plan.error;
}

}  // namespace

SysResult LaunchProcess(ProcessCommand command, const std::string& folder, const ChildStreams& streams,
                        ChildLife life, pid_t& child) {
  int error = Launch(command, folder, streams, life, child);
  // What is being used for a file is used up for a process.
  if (error == EAGAIN) return SysResult::Failure(Win32Error::NotEnoughMemory);
  if (error != 0) {
    if (const SysResult result = FindInterpreter(error, command); !result) return result;
    error = Launch(command, folder, streams, life, child);
  }
  if (error != 0) return SysResult::Failure(FromErrno(error));
  if (command.announce) command.announce(CommandText(command));
  return {};
}
