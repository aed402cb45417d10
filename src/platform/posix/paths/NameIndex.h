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

struct Folder;

/// Finds names without regard to case. A folder is read once and its names are kept while it stays as it is,
/// so that many misses in a large folder cost a look-up each. [any thread]
class NameIndex {
 public:
  /// Whether a folder that was looked at a moment ago is taken to be as it was. That is enough where a change
  /// follows that tells by itself what is true.
  enum class Look { Again, Once };

  /// The name on the disk that is shown as `name` or differs from that in case at most, `name` itself where
  /// it stands there. Others than that one are passed over unless they are wanted.
  using Wanted = std::function<bool(std::string_view diskName)>;
  std::optional<std::string> Find(const Folder& folder, std::string_view name, Look look,
                                  const Wanted& isWanted = {});

 private:
  friend class DiskChange;
  using Clock = std::chrono::steady_clock;
  struct Names {
    dev_t device;
    ino_t inode;
    timespec changed;
    Clock::time_point believedUntil;
    Clock::time_point looked;
    NameTable table;
  };

  void Forget();
  void LookAgain();
  bool Knows(const Folder& folder);
  void Refresh(const Folder& folder, std::string_view added, std::string_view removed);
  std::list<Names>::iterator Of(const Folder& folder);
  Names* Known(const Folder& folder, Look look);
  Names* Read(const Folder& folder);

  std::mutex mutex_;
  std::list<Names> folders_;  // the one read last in front
};
