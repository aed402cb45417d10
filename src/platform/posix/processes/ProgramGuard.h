#pragma once

#include <sys/types.h>

/// Ends the program that runs, with its process group, when this one is killed: a process apart, which waits
/// for that and for nothing else. It is made with the first program, so that who runs none does not pay for
/// it.
class ProgramGuard {
 public:
  /// The leader of the group; 0 for none.
  static void Watch(pid_t leader);

  /// What is watched. Signal handlers may call it.
  static pid_t Watched();

  /// The guard's own process; 0 where there is none.
  static pid_t Process();
};
