#include "platform/posix/paths/CaseTwins.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/posix/paths/PosixPaths.h"

void CaseTwins::Arrived(const Place& source, const Place& target) {
  const std::lock_guard lock(mutex_);
  if (!IsKnown(source, target)) {
    from_ = FolderIdentity::Of(*source.folder);
    to_ = FolderIdentity::Of(*target.folder);
    names_.clear();
  }
  std::erase_if(names_, [&](const auto& pair) { return pair.second == target.name; });
  names_.emplace_back(source.name, target.name);
}

bool CaseTwins::IsOfTwin(const Place& source, const Place& target, std::string_view name) {
  const std::lock_guard lock(mutex_);
  return IsKnown(source, target) && std::ranges::any_of(names_, [&](const auto& pair) {
           return pair.first != source.name && pair.second == name;
         });
}

/// Whether the names are those of the source and its twins.
bool CaseTwins::IsKnown(const Place& source, const Place& target) const {
  return !names_.empty() && from_ == FolderIdentity::Of(*source.folder) &&
         to_ == FolderIdentity::Of(*target.folder) && SameText(names_.front().first, source.name);
}

CaseTwins::FolderIdentity CaseTwins::FolderIdentity::Of(const Folder& folder) {
  return {folder.device, folder.inode};
}
