#pragma once

#include <chrono>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unordered_map>

/// Finds names without regard to case. A folder is read once and its names are kept while it stays as it is,
/// so that many misses in a large folder cost a look-up each. Folders are given as open descriptors.
/// [any thread]
class NameIndex {
 public:
  /// The name on the disk that differs from `name` in case at most, `name` itself where it stands there.
  std::optional<std::string> Find(int folder, std::string_view name);

 private:
  friend class DiskChange;
  using Clock = std::chrono::steady_clock;
  struct Names {
    dev_t device;
    ino_t inode;
    timespec changed;
    Clock::time_point read;
    std::unordered_multimap<std::string, std::string> byUpperName;
  };

  void Forget();
  bool Knows(int folder);
  void Refresh(int folder, std::string_view added, std::string_view removed);
  Names* Known(const struct stat& status);
  Names* Read(int folder, const struct stat& status);

  std::mutex mutex_;
  std::list<Names> folders_;  // the one read last in front
};
