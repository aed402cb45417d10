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

/// Whether a walk goes into a folder through a link to it.
enum class FolderLinks { Leave, Follow };

/// A recursive walk through folders. A copy follows links; a walk whose finds are handed out or changed goes
/// by IVekActionHost::GetFolderLinks. None goes into a folder that it is already inside.
class VEK_API TFolderWalk {
 public:
  TFolderWalk(Entries& entries, Finder& finder, FolderLinks links, UnreadableFolder unreadable)
      : entries_(entries), finder_(finder), links_(links), unreadable_(std::move(unreadable)) {}

  /// Calls `visit` with the name of each sub-folder of `folder` that the walk may go into, in the order of
  /// the disk, hidden and system ones left out unless the mask has their bits. `folder` ends in a delimiter,
  /// or is empty for the current folder. To go deeper, `visit` calls this again; false from it ends the walk
  /// of this folder.
  using Visit = std::function<bool(const std::string& name)>;
  void ForEachFolder(const std::string& folder, uint32_t mask, const Visit& visit);

  /// The same for every sub-folder that there is, told whether the walk may go into it.
  using VisitFound = std::function<bool(const std::string& name, bool mayEnter)>;
  void ForEachFound(const std::string& folder, uint32_t mask, const VisitFound& visit);

 private:
  struct Step {
    std::string folder;
    std::optional<EntryIdentity> identity;  // looked up when it is first needed
  };

  bool MayEnter(const std::string& folder, bool isLink);
  bool IsInside(const std::string& folder);

  Entries& entries_;
  Finder& finder_;
  FolderLinks links_;
  UnreadableFolder unreadable_;
  std::vector<Step> trail_;
  size_t linksPassed_ = 0;  // on the way to where the walk is
};
