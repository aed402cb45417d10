#include "platform/posix/processes/ProgramGuard.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace {

// A signal handler reaches nothing but globals.
std::atomic<pid_t> ownLeader = 0;
std::atomic<std::atomic<pid_t>*> watched = &ownLeader;  // in memory that is shared with the guard
std::atomic<pid_t> guard = 0;
bool isMade = false;

/// The guard's life: system calls only. The pipe ends when its writer does, however that is.
[[noreturn]] void Guard(int pipe, const std::atomic<pid_t>& leader) {
  setsid();  // out of reach of signals to the killed one's group
  dup2(pipe, STDIN_FILENO);
  close_range(STDOUT_FILENO, ~0U, 0);
  [[maybe_unused]] const int moved = chdir("/");
  char word = 0;
  while (read(STDIN_FILENO, &word, sizeof word) < 0 && errno == EINTR) continue;
  if (leader > 0) kill(-leader, SIGKILL);
  _exit(0);
}

void MakeGuard() {
  void* shared = mmap(nullptr, sizeof ownLeader, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  int ends[2];
  if (shared == MAP_FAILED || pipe2(ends, O_CLOEXEC) != 0) return;
  auto& leader = *new (shared) std::atomic<pid_t>(0);
  watched = &leader;
  const pid_t process = fork();
  if (process == 0) {
    close(ends[1]);
    Guard(ends[0], leader);
  }
  close(ends[0]);
  if (process < 0) close(ends[1]);
  guard = process > 0 ? process : 0;
}

}  // namespace

void ProgramGuard::Watch(pid_t leader) {
  if (leader != 0 && !std::exchange(isMade, true)) MakeGuard();
  *watched.load() = leader;
}

pid_t ProgramGuard::Watched() { return *watched.load(); }
pid_t ProgramGuard::Process() { return guard; }
