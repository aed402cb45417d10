#pragma once

#include <vector>

#include "platform/win32/system/Win32Api.h"

/// A program with all that it starts. What still runs when the job goes, and be it because this program
/// crashed, ends by force unless it was released.
class Win32ProcessJob {
 public:
  Win32ProcessJob();

  bool Add(HANDLE process);
  void Release();

  /// The number of processes that run.
  DWORD Active() const;

  /// Asks the process group and every window to end; false when there was no way to ask.
  bool Ask(DWORD group) const;
  void Terminate(UINT exitCode) const;

 private:
  void SetLimits(DWORD flags) const;
  std::vector<DWORD> Members() const;

  Handle job_;
};
