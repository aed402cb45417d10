#pragma once

#include <chrono>
#include <mutex>
#include <optional>
#include <string>

#include "platform/posix/files/EntryStatus.h"

struct Folder;

/// An entry as it was found.
struct SeenEntry {
  EntryStatus entry;
  uint32_t attributes;
};

/// The folder that was just listed, if it has no sub-folders: a walk that takes the files of a folder and
/// then its sub-folders need not list it twice. Believed as briefly as a RecentEntry. [any thread]
class RecentLeaf {
 public:
  void Keep(const Folder& folder);
  bool Is(const Folder& folder);

 private:
  friend class DiskChange;
  using Clock = std::chrono::steady_clock;

  void Forget();

  std::mutex mutex_;
  dev_t device_ = 0;
  ino_t inode_ = 0;  // 0: nothing is kept
  Clock::time_point when_;
};

/// What a search has just found, so that acting on it at once needs no second look: it is believed for less
/// time than another program takes to start. [any thread]
class RecentEntry {
 public:
  void Keep(const Folder& folder, const char* name, const SeenEntry& seen);
  std::optional<SeenEntry> Find(const Folder& folder, const std::string& name);

 private:
  friend class DiskChange;
  using Clock = std::chrono::steady_clock;

  void Forget();

  std::mutex mutex_;
  dev_t device_ = 0;
  ino_t inode_ = 0;
  std::string name_;  // empty: nothing is kept
  SeenEntry seen_ = {};
  Clock::time_point when_;
};
