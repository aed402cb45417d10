#pragma once

#include <sys/stat.h>

/// What differs when a file has other contents.
struct FileStamp {
  dev_t device = 0;
  ino_t inode = 0;  // 0: of no file
  off_t size = 0;
  timespec written = {}, changed = {};

  static FileStamp Of(const struct stat& status);
  bool operator==(const FileStamp& other) const;

  /// False for a file that could still change without its status telling: one written a moment ago, and what
  /// is no file at all.
  static bool TellsOfChanges(const struct stat& status);
};
