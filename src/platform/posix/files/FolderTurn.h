#pragma once

#include "base/Win32Error.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/system/UniqueFd.h"

/// Writers of several processes take turns, so that no change is lost between reading and replacing a file.
/// The lock is on the folder, because the file is another one after each write.
class FolderTurn {
 public:
  /// Waits for it, ten seconds at most.
  explicit FolderTurn(const Place& place);

  /// LockViolation when another program keeps the folder.
  SysResult Result() const { return result_; }

 private:
  UniqueFd folder_;
  SysResult result_;
};
