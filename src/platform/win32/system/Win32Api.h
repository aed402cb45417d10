#pragma once

// The system's header defines macros with the names of many operations (DeleteFile, SendMessage, ...), so it
// is for this backend only; the build defines what trims it.
#include <utility>
#include <windows.h>

#include "base/Win32Error.h"

/// Owns a kernel handle.
class Handle {
 public:
  explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Handle() {
    if (*this) CloseHandle(handle_);
  }

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

/// For looks in passing, which stand against nobody.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Keeps the system from asking the user in a box (no disk in the drive, a missing DLL) on this thread.
class NoErrorBoxes {
 public:
  NoErrorBoxes() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before_); }
  NoErrorBoxes(const NoErrorBoxes&) = delete;
  NoErrorBoxes& operator=(const NoErrorBoxes&) = delete;
  ~NoErrorBoxes() { SetThreadErrorMode(before_, nullptr); }

 private:
  DWORD before_ = 0;
};

/// What the call just made reported; to be asked before anything else happens on the thread.
inline Win32Error LastError() { return static_cast<Win32Error>(GetLastError()); }
inline SysResult LastFailure() { return SysResult::Failure(LastError()); }
inline SysResult ResultOf(BOOL succeeded) { return succeeded ? SysResult{} : LastFailure(); }
