#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Entries.h"
#include "platform/Finder.h"
#include "vekcoreapi_export.h"

/// Told of a search that could not look where it should: the folder, and what the system says.
using UnreadableFolder = std::function<void(std::string_view folder, Win32Error code)>;

/// Whether a search failed for another reason than that there is nothing to find.
constexpr bool IsUnreadable(SysResult found) {
  return !found && found.code != Win32Error::FileNotFound && found.code != Win32Error::PathNotFound;
}

/// A recursive walk through folders. It follows links, but goes into no folder that it is already inside.
class VEK_API TFolderWalk {
 public:
  TFolderWalk(Entries& entries, Finder& finder, UnreadableFolder unreadable)
      : entries_(entries), finder_(finder), unreadable_(std::move(unreadable)) {}

  /// Calls `visit` with the name of each sub-folder of `folder`, in the order of the disk, hidden and system
  /// ones left out unless the mask has their bits. `folder` ends in a delimiter, or is empty for the current
  /// folder. To go deeper, `visit` calls this again; false from it ends the walk of this folder.
  using Visit = std::function<bool(const std::string& name)>;
  void ForEachFolder(const std::string& folder, uint32_t mask, const Visit& visit);

 private:
  struct Step {
    std::string folder;
    std::optional<EntryIdentity> identity;  // looked up when it is first needed
  };

  bool IsInside(const std::string& folder);

  Entries& entries_;
  Finder& finder_;
  UnreadableFolder unreadable_;
  std::vector<Step> trail_;
  size_t links_ = 0;  // how many steps of the trail are behind a link
};
