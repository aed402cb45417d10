#include "platform/posix/processes/PosixProcessSession.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string>
#include <utility>

#include "platform/posix/processes/ProgramGuard.h"
#include "platform/posix/system/UniqueFd.h"

namespace {

struct Status {
  pid_t process = 0;
  char state = 0;
  int parent = 0, group = 0, session = 0;
  unsigned long long start = 0;  // in the system's ticks
  bool isMember = false;

  bool HasEnded() const { return state == 'Z' || state == 'X'; }
};

/// Reads what the system tells of a process; false when it is gone.
bool ReadStatus(int proc, const char* process, Status& status) {
  const UniqueFd file(openat(proc, (std::string(process) + "/stat").c_str(), O_RDONLY | O_CLOEXEC));
  char text[1024];
  const ssize_t size = file ? read(file.Get(), text, sizeof text - 1) : -1;
  if (size <= 0) return false;
  text[size] = '\0';
  status.process = std::atoi(process);
  // The name of the program stands in parentheses and may hold any character.
  const char* nameEnd = std::strrchr(text, ')');
  return nameEnd != nullptr &&
         std::sscanf(nameEnd + 1,
                     " %c %d %d %d %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %llu",
                     &status.state, &status.parent, &status.group, &status.session, &status.start) == 5;
}

/// None where the system does not tell.
std::vector<Status> AllProcesses() {
  std::vector<Status> all;
  const std::unique_ptr<DIR, int (*)(DIR*)> proc(opendir("/proc"), &closedir);
  while (const dirent* entry = proc ? readdir(proc.get()) : nullptr) {
    Status status;
    if (std::atoi(entry->d_name) > 0 && ReadStatus(dirfd(proc.get()), entry->d_name, status))
      all.push_back(status);
  }
  return all;
}

}  // namespace

PosixProcessSession::PosixProcessSession(pid_t leader) : leader_(leader) { ProgramGuard::Watch(leader); }
PosixProcessSession::~PosixProcessSession() { ProgramGuard::Watch(0); }

void PosixProcessSession::KillCurrentGroup() {
  const pid_t leader = ProgramGuard::Watched();
  if (leader > 0) kill(-leader, SIGKILL);
}

void PosixProcessSession::KillCurrent() {
  const pid_t leader = ProgramGuard::Watched();
  if (leader > 0) PosixProcessSession(leader).Signal(SIGKILL);
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

/// Those that have not ended.
std::vector<PosixProcessSession::Member> PosixProcessSession::Members() const {
  std::vector<Status> all = AllProcesses();
  const auto leader = std::ranges::find(all, leader_, &Status::process);
  if (leader == all.end()) return {};
  // What earlier programs left running came to this program, too, but is older.
  const auto isAdopted = [start = leader->start](const Status& s) {
    return s.parent == getpid() && s.process != ProgramGuard::Process() && s.start >= start;
  };
  const auto hasMember = [&all](pid_t process) {
    return std::ranges::any_of(all, [&](const Status& s) { return s.isMember && s.process == process; });
  };
  for (Status& status : all) status.isMember = status.session == leader_ || isAdopted(status);
  for (bool found = true; std::exchange(found, false);) {
    for (Status& status : all) {
      if (status.isMember || !hasMember(status.parent)) continue;
      status.isMember = found = true;
    }
  }
  std::vector<Member> members;
  for (const Status& status : all) {
    if (status.isMember && !status.HasEnded()) members.push_back({status.process, status.group});
  }
  return members;
}
