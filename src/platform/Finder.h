#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Win32Error.h"

/// What a search finds out about each entry; less spares a look at every one of them.
enum class FindDetail {
  All,
  Status,       // of the attributes perhaps only ReadOnly, Directory and ReparsePoint
  Names,        // of the attributes only Directory and ReparsePoint; no size, no time
  FolderNames,  // likewise, and folders only, without "." and ".."
};

struct FoundEntry {
  std::string name;         // as it stands on the disk; what a path could not say is shown otherwise
  uint32_t attributes = 0;  // FileAttribute bits
  uint64_t size = 0;        // bytes; 0 for a folder
  double lastWrite = 0;     // Unix time in seconds
  double lastAccess = 0;    // likewise
};

/// A running search; closing is destruction. Entries come in the order of their upper-cased names.
class FindSearch {
 public:
  virtual ~FindSearch() = default;

  /// Takes the next match; false when there is none left. An entry that vanished meanwhile is passed over.
  virtual bool Next(FoundEntry& entry) = 0;

  /// Once all matches were taken: why some may have been left out, or success.
  virtual SysResult Result() const = 0;
};

/// Find-first/find-next over a folder. Mask rule: read-only and archive files always match; hidden, system
/// and folder entries match only when their bit is in the mask. "." and ".." come where folders are asked
/// for with wildcards. The name part follows the DOS wildcard rules; without wildcards it finds one entry.
class Finder {
 public:
  virtual ~Finder() = default;

  /// Opens a search over `spec`. Never null: a search that finds nothing (FileNotFound) or whose folder is
  /// missing (PathNotFound) yields no entry, and `result` says why. One whose folder breaks off while it is
  /// read yields what was read. Files that are in the making are not found.
  std::unique_ptr<FindSearch> Open(std::string_view spec, uint32_t mask, SysResult& result) {
    return Open(spec, mask, FindDetail::All, result);
  }
  virtual std::unique_ptr<FindSearch> Open(std::string_view spec, uint32_t mask, FindDetail detail,
                                           SysResult& result) = 0;
};
