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

  /// Drops what is known: for when other programs have worked, as after a child process.
  void Forget();

  /// Brackets a change that this process makes in a folder. What was known and is told here stays known, so
  /// that the folder need not be read anew after each of many changes.
  class Change {
   public:
    Change(NameIndex& index, int folder) : index_(index), folder_(folder), known_(index.Knows(folder)) {}
    ~Change() {
      if (known_) index_.Refresh(folder_, added_, removed_);
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;
    void Added(std::string_view name) { added_ = name; }
    void Removed(std::string_view name) { removed_ = name; }

   private:
    NameIndex& index_;
    int folder_;
    bool known_;
    std::string_view added_, removed_;
  };

 private:
  using Clock = std::chrono::steady_clock;
  struct Names {
    dev_t device;
    ino_t inode;
    timespec changed;
    Clock::time_point read;
    std::unordered_multimap<std::string, std::string> byUpperName;
  };

  bool Knows(int folder);
  void Refresh(int folder, std::string_view added, std::string_view removed);
  Names* Known(const struct stat& status);
  Names* Read(int folder, const struct stat& status);

  std::mutex mutex_;
  std::list<Names> folders_;  // the one read last in front
};
