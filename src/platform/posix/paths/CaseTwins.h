#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

struct Folder;
struct Place;

/// Files of one folder whose names differ in case only do not replace each other where they are copied or
/// moved to, though there every spelling stands for the same file. Searches find such names one after
/// another, so that those of the last name are all that is remembered. [any thread]
class CaseTwins {
 public:
  /// Told of every file that was copied or moved.
  void Arrived(const Place& source, const Place& target);

  /// Whether the entry of that name in the target's folder is what a twin of the source became.
  bool IsOfTwin(const Place& source, const Place& target, std::string_view name);

 private:
  struct FolderIdentity {
    dev_t device = 0;
    ino_t inode = 0;

    static FolderIdentity Of(const Folder& folder);
    bool operator==(const FolderIdentity&) const = default;
  };

  bool IsKnown(const Place& source, const Place& target) const;

  std::mutex mutex_;
  FolderIdentity from_, to_;
  std::vector<std::pair<std::string, std::string>> names_;  // of a source and of its target
};
