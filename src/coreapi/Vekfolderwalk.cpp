#include "coreapi/Vekfolderwalk.h"

#include "platform/FileAttributes.h"

void TFolderWalk::ForEachFolder(const std::string& folder, uint32_t mask, const Visit& visit) {
  trail_.push_back({folder, {}});
  SysResult found;
  const auto search =
      finder_.Open(folder + "*", mask | FileAttribute::Directory, FindDetail::FolderNames, found);
  if (IsUnreadable(found)) unreadable_(folder, found.code);
  for (FoundEntry entry; search->Next(entry);) {
    const bool isLink = (entry.attributes & FileAttribute::ReparsePoint) != 0;
    // Without a link on the way a folder cannot contain itself.
    if ((isLink || links_ > 0) && IsInside(folder + entry.name)) continue;
    if (isLink) ++links_;
    const bool goOn = visit(entry.name);
    if (isLink) --links_;
    if (!goOn) break;
  }
  trail_.pop_back();
}

bool TFolderWalk::IsInside(const std::string& folder) {
  const auto identity = entries_.Identity(folder);
  for (Step& step : trail_) {
    if (!step.identity) step.identity = entries_.Identity(step.folder.empty() ? "." : step.folder);
    if (identity && step.identity == identity) return true;
  }
  return false;
}
