#pragma once

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>

#include "platform/posix/system/UniqueFd.h"

/// Reads the entries of a folder that is given as an open descriptor, which stays untouched.
class FolderReader {
 public:
  explicit FolderReader(int folder) {
    UniqueFd readable(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (readable && (stream_ = fdopendir(readable.Get())) != nullptr) readable.Release();
  }
  ~FolderReader() {
    if (stream_ != nullptr) closedir(stream_);
  }
  FolderReader(const FolderReader&) = delete;
  FolderReader& operator=(const FolderReader&) = delete;

  explicit operator bool() const { return stream_ != nullptr; }

  /// Null at the end, or where the folder broke off.
  const dirent* Next() {
    errno = 0;
    const dirent* entry = readdir(stream_);
    if (entry == nullptr) error_ = errno;
    return entry;
  }

  /// Why it broke off, or 0.
  int Error() const { return error_; }

 private:
  int error_ = 0;
  DIR* stream_ = nullptr;
};
