#pragma once

#include <sys/types.h>
#include <vector>

/// A running program with all that it started: its session, its descendants, and those whose parents have
/// ended, which the system hands to this program. Its leader stays in the system's table until it is reaped,
/// so the number is no other's meanwhile.
class PosixProcessSession {
 public:
  explicit PosixProcessSession(pid_t leader);
  ~PosixProcessSession();
  PosixProcessSession(const PosixProcessSession&) = delete;
  PosixProcessSession& operator=(const PosixProcessSession&) = delete;

  void Signal(int signal) const;

  /// Whether there is anyone besides the leader.
  bool HasOthers() const;

  /// For the end of this program: force what runs to its end. A signal handler may call the first, which
  /// reaches the leader's group alone.
  static void KillCurrentGroup();
  static void KillCurrent();

 private:
  struct Member {
    pid_t process, group;
  };
  std::vector<Member> Members() const;

  const pid_t leader_;
};
