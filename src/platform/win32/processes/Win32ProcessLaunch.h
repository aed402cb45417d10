#pragma once

#include "platform/Processes.h"
#include "platform/win32/system/Win32Api.h"

/// A kernel handle from a call that answers null when it fails.
inline Handle OwnedUnlessNull(HANDLE handle) {
  return Handle(handle != nullptr ? handle : INVALID_HANDLE_VALUE);
}

/// Where a program's output goes: to this program's standard error, as long as nobody receives it.
struct ChildStreams {
  HANDLE out = INVALID_HANDLE_VALUE;
  HANDLE err = INVALID_HANDLE_VALUE;
};

struct LaunchedProcess {
  Handle process, thread;
  DWORD id = 0;
};

/// Makes the process, which waits for its thread to be resumed. It leads a process group of its own, which
/// the user's Ctrl-C does not reach.
SysResult LaunchProcess(const ProcessSetup& setup, const ChildStreams& streams, LaunchedProcess& launched);
