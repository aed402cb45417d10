#pragma once

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
  const dirent* Next() { return readdir(stream_); }

 private:
  DIR* stream_ = nullptr;
};
