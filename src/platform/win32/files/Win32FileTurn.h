#pragma once

#include <string>

#include "platform/win32/system/Win32Api.h"

/// Writers of several processes take turns, so that no change is lost between reading and replacing a file.
/// The turn belongs to the file itself, links followed; a thread that has it may take it again.
class FileTurn {
 public:
  /// Waits for it, ten seconds at most.
  explicit FileTurn(const std::wstring& native);
  ~FileTurn();
  FileTurn(const FileTurn&) = delete;
  FileTurn& operator=(const FileTurn&) = delete;

  /// LockViolation when another program keeps the file.
  SysResult Result() const { return isOurs_ ? SysResult() : SysResult::Failure(Win32Error::LockViolation); }

 private:
  HANDLE mutex_;
  bool isOurs_ = false;
};
