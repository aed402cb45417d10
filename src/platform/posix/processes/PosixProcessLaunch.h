#pragma once

#include <string>
#include <sys/types.h>
#include <unistd.h>

#include "base/Win32Error.h"

struct ProcessCommand;

/// Where a program's output goes: to this program's standard error, as long as nobody receives it.
struct ChildStreams {
  int out = STDERR_FILENO;
  int err = STDERR_FILENO;
};

/// Whether a program ends when this one is killed.
enum class ChildLife { EndsWithUs, OnItsOwn };

/// Starts a program as the leader of a new session: apart from the terminal, whose Ctrl-C is not meant for
/// it, and where it could only wait for an answer in vain. An empty folder is the current one.
SysResult LaunchProcess(ProcessCommand command, const std::string& folder, const ChildStreams& streams,
                        ChildLife life, pid_t& child);
