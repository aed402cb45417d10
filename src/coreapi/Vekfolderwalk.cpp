#include "coreapi/Vekfolderwalk.h"

#include "platform/FileAttributes.h"

void TFolderWalk::ForEachFolder(const std::string& folder, uint32_t mask, const Visit& visit) {
  ForEachFound(folder, mask,
               [&visit](const std::string& name, bool mayEnter) { return !mayEnter || visit(name); });
}

void TFolderWalk::ForEachFound(const std::string& folder, uint32_t mask, const VisitFound& visit) {
  trail_.push_back({folder, {}});
  SysResult found;
  const auto search =
      finder_.Open(folder + "*", mask | FileAttribute::Directory, FindDetail::FolderNames, found);
  bool goesOn = true;
  for (FoundEntry entry; goesOn && search->Next(entry);) {
    const bool isLink = (entry.attributes & FileAttribute::ReparsePoint) != 0;
    const bool mayEnter = MayEnter(folder + entry.name, isLink);
    if (isLink) ++linksPassed_;
    goesOn = visit(entry.name, mayEnter);
    if (isLink) --linksPassed_;
  }
  trail_.pop_back();
  if (const SysResult result = search->Result(); IsUnreadable(result)) unreadable_(folder, result.code);
}

bool TFolderWalk::MayEnter(const std::string& folder, bool isLink) {
  if (isLink && links_ == FolderLinks::Leave) return false;
  // Without a link on the way a folder cannot contain itself.
  return (!isLink && linksPassed_ == 0) || !IsInside(folder);
}

bool TFolderWalk::IsInside(const std::string& folder) {
  const auto identity = entries_.Identity(folder);
  for (Step& step : trail_) {
    if (!step.identity) step.identity = entries_.Identity(step.folder.empty() ? "." : step.folder);
    if (identity && step.identity == identity) return true;
  }
  return false;
}
