#pragma once

#include <cstdint>

/// Error codes as Windows numbers them. Whatever an operating-system call reports is turned into one of
/// these at the call, on every platform; the texts come from Platform::errorTexts.
enum class Win32Error : uint32_t {
  Success = 0,
  InvalidFunction = 1,
  FileNotFound = 2,
  PathNotFound = 3,
  TooManyOpenFiles = 4,
  AccessDenied = 5,
  InvalidHandle = 6,
  NotEnoughMemory = 8,
  InvalidData = 13,
  InvalidDrive = 15,
  CurrentDirectory = 16,
  NotSameDevice = 17,
  NoMoreFiles = 18,
  WriteProtect = 19,
  NotReady = 21,
  GeneralFailure = 31,
  SharingViolation = 32,
  LockViolation = 33,
  HandleEof = 38,
  HandleDiskFull = 39,
  NotSupported = 50,
  FileExists = 80,
  InvalidParameter = 87,
  BrokenPipe = 109,
  DiskFull = 112,
  InvalidName = 123,
  ModuleNotFound = 126,
  ProcNotFound = 127,
  DirNotEmpty = 145,
  Busy = 170,
  AlreadyExists = 183,
  BadExeFormat = 193,
  FilenameExcedRange = 206,
  Directory = 267,
  BadRegistry = 1009,
  NoAssociation = 1155,
  Cancelled = 1223,
  RequestAborted = 1235,
  CantResolveFilename = 1921,
};

/// What an operating-system call reported. The code of a failure may be 0 when the system gave none, and
/// a call that succeeded carries the thread's last error code, which is 0 unless a step inside it failed.
struct SysResult {
  bool ok = true;
  Win32Error code = Win32Error::Success;

  static constexpr SysResult Failure(Win32Error code) { return {false, code}; }
  constexpr explicit operator bool() const { return ok; }
};
