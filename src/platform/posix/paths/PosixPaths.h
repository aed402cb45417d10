#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "base/Win32Error.h"
#include "platform/CreatePlatform.h"
#include "platform/posix/paths/CaseTwins.h"
#include "platform/posix/paths/NameIndex.h"
#include "platform/posix/paths/RecentEntry.h"
#include "platform/posix/system/UniqueFd.h"

/// A folder held open, so that what is done in it needs the short name only.
struct Folder {
  UniqueFd fd;
  std::string path;  // native, as it stands on the disk
  dev_t device;
  ino_t inode;
};

/// An entry by its folder and its name; without a folder, `error` says why there is none.
struct Place {
  std::shared_ptr<const Folder> folder;
  std::string name;
  Win32Error error = Win32Error::PathNotFound;

  int Fd() const { return folder->fd.Get(); }
  const char* Name() const { return name.c_str(); }
};

/// From Windows paths to places on this system. Names are tried as written, and only when that fails looked
/// for as they are shown (see ShownNames.h) and without regard to case. [any thread]
class PosixPaths {
 public:
  explicit PosixPaths(DriveLookup drives) : drives_(std::move(drives)) {}

  /// The path in native form, taken as text; nothing when its drive is not mapped.
  std::optional<std::string> Native(std::string_view path);

  /// Finds the folder of `path`; the name stands as written, whether such an entry exists or not.
  Place Locate(std::string_view path);

  /// The folder itself, as the place "." in it.
  Place LocateFolder(std::string_view path);

  /// Exchanges the name for that of an entry that differs in case only, or is shown so; false when there is
  /// none.
  bool OtherCase(Place& place);

  /// Gives a place the name of the entry that stands there, in other case too, or of the one to be made;
  /// false when there is none. An entry that a twin of `source` became is not the one that `source` replaces.
  bool SettleTarget(Place& target, const Place* source = nullptr);

  /// The same without regard to entries in other case, and without a look whether there is one.
  bool SettleAsWritten(Place& target);

  /// Runs `operation(place)`, and when it answers FileNotFound once more for the name in other case.
  template <class Operation>
  SysResult OnEntry(std::string_view path, Operation operation) {
    Place place = Locate(path);
    if (!place.folder) return SysResult::Failure(place.error);
    SysResult result = operation(place);
    if (result.code == Win32Error::FileNotFound && OtherCase(place)) result = operation(place);
    return result;
  }

  /// Removes what killed programs left in a folder, the first time that it is called for the folder.
  void SweepOnce(const Folder& folder);

  CaseTwins& Twins() { return twins_; }
  RecentEntry& Recent() { return recent_; }
  RecentLeaf& Leaf() { return leaf_; }

 private:
  friend class DiskChange;
  using Clock = std::chrono::steady_clock;

  struct UsedFolder {
    std::string text;
    std::shared_ptr<const Folder> folder;
    Clock::time_point seen;
  };

  void ForgetFolders();
  std::optional<std::string> DriveRoot(char letter);
  std::shared_ptr<const Folder> UsedBefore(std::string_view folderText);
  std::shared_ptr<const Folder> OpenFolder(std::string_view folderText, Win32Error& error);
  UniqueFd Descend(const std::string& native, std::string& path, int& error);

  DriveLookup drives_;
  NameIndex names_;
  CaseTwins twins_;
  RecentEntry recent_;
  RecentLeaf leaf_;
  std::mutex mutex_;
  std::set<std::pair<dev_t, ino_t>> swept_;
  std::array<std::optional<std::optional<std::string>>, 26> roots_;
  std::array<UsedFolder, 4> used_;  // the one used last in front
};
