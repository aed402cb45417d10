#include "platform/posix/processes/PosixProcessSession.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string>

#include "platform/posix/system/UniqueFd.h"

namespace {

// A signal handler reaches nothing but globals.
std::atomic<pid_t> currentLeader = 0;

struct Status {
  char state;
  int parent, group, session;
};

/// Reads what the system tells of a process; false when it is gone.
bool ReadStatus(int proc, const std::string& process, Status& status) {
  const UniqueFd file(openat(proc, (process + "/stat").c_str(), O_RDONLY | O_CLOEXEC));
  char text[1024];
  const ssize_t size = file ? read(file.Get(), text, sizeof text - 1) : -1;
  if (size <= 0) return false;
  text[size] = '\0';
  // The name of the program stands in parentheses and may hold any character.
  const char* nameEnd = std::strrchr(text, ')');
  return nameEnd != nullptr && std::sscanf(nameEnd + 1, " %c %d %d %d", &status.state, &status.parent,
                                           &status.group, &status.session) == 4;
}

}  // namespace

PosixProcessSession::PosixProcessSession(pid_t leader) : leader_(leader) { currentLeader = leader; }
PosixProcessSession::~PosixProcessSession() { currentLeader = 0; }

void PosixProcessSession::KillCurrent() {
  const pid_t leader = currentLeader;
  if (leader > 0) kill(-leader, SIGKILL);
}

void PosixProcessSession::Signal(int signal) const {
  const std::vector<Member> members = Members();
  kill(-leader_, signal);
  for (const Member& member : members) {
    if (member.group != leader_) kill(member.process, signal);
  }
}

bool PosixProcessSession::HasOthers() const {
  return std::ranges::any_of(Members(), [this](const Member& m) { return m.process != leader_; });
}

/// Those that have not ended; none where the system does not tell.
std::vector<PosixProcessSession::Member> PosixProcessSession::Members() const {
  std::vector<Member> members;
  const std::unique_ptr<DIR, int (*)(DIR*)> proc(opendir("/proc"), &closedir);
  while (const dirent* entry = proc ? readdir(proc.get()) : nullptr) {
    const int process = std::atoi(entry->d_name);
    Status status{};
    if (process <= 0 || !ReadStatus(dirfd(proc.get()), entry->d_name, status)) continue;
    const bool ended = status.state == 'Z' || status.state == 'X';
    if (status.session == leader_ && !ended) members.push_back({process, status.group});
  }
  return members;
}
