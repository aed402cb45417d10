#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/posix/paths/NameTable.h"

/// Finds names without regard to case. A folder is read once and its names are kept while it stays as it is,
/// so that many misses in a large folder cost a look-up each. Folders are given as open descriptors.
/// [any thread]
class NameIndex {
 public:
  /// The name on the disk that is shown as `name` or differs from that in case at most, `name` itself where
  /// it stands there. Others than that one are passed over unless they are wanted.
  using Wanted = std::function<bool(std::string_view diskName)>;
  std::optional<std::string> Find(int folder, std::string_view name, const Wanted& isWanted = {});

 private:
  friend class DiskChange;
  using Clock = std::chrono::steady_clock;
  struct Names {
    dev_t device;
    ino_t inode;
    timespec changed;
    Clock::time_point believedUntil;
    NameTable table;
  };

  void Forget();
  bool Knows(int folder);
  void Refresh(int folder, std::string_view added, std::string_view removed);
  Names* Known(const struct stat& status);
  Names* Read(int folder, const struct stat& status);

  std::mutex mutex_;
  std::list<Names> folders_;  // the one read last in front
};
