#include "base/WindowsPath.h"
#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekactionhost.h"
#include "coreapi/Vekfolderwalk.h"
#include "coreapi/Vekutils.h"
#include "platform/FileAttributes.h"
#include "platform/Platform.h"
#include "platform/Processes.h"

// The steps of Execute that many actions have in common.

bool TCustomVekAction::AttemptOrReport(std::string_view complaint, const std::string& subject,
                                       std::string_view mark, const std::function<void()>& step) const {
  try {
    step();
    return true;
  } catch (const std::exception& error) {
    CountError();
    SendStatusMessage({std::string(complaint) + subject, std::string(mark) + error.what()});
    return false;
  }
}

void TCustomVekAction::RearmStop(std::atomic<bool>& flag) {
  flag = false;
  if (StopSignalled()) flag = true;
}

void TCustomVekAction::RearmStop(StopEvent& event) {
  event.Reset();
  if (StopSignalled()) event.Signal();
}

void TCustomVekAction::WalkFolders(const std::string& folder, bool recurse, const FolderVisit& visit) {
  TFolderWalk walk(*GetPlatform().entries, *GetPlatform().finder, GetFolderLinks(),
                   [this](std::string_view unread, Win32Error code) { ReportUnreadable(unread, code); });
  const FolderVisit descend = [&](const std::string& parent) {
    visit(parent);
    if (!recurse) return;
    walk.ForEachFolder(parent, FileAttribute::Directory, [&](const std::string& name) {
      descend(AsFolder(GetPlatform(), parent + name));
      return !StopSignalled();
    });
  };
  descend(folder);
}

void TCustomVekAction::CountError() const { host_.CountError(); }

void TCustomVekAction::ReportError(std::string_view text) const { host_.ReportError(text); }

FolderLinks TCustomVekAction::GetFolderLinks() const { return host_.GetFolderLinks(); }

void TCustomVekAction::ReportUnreadable(std::string_view folder, Win32Error code) const {
  // A walk lists a folder for its files and again for its sub-folders.
  if (folder == lastUnreadable_) return;
  lastUnreadable_ = folder;
  host_.ReportError("Cannot search " + std::string(folder) + ": " + SysErrorMessage(code));
}

void TCustomVekAction::ReportUnreadable(std::string_view folder, const FindSearch& search) const {
  const SysResult result = search.Result();
  if (IsUnreadable(result)) ReportUnreadable(folder, result.code);
}

bool TCustomVekAction::MayRemoveTree(std::string_view folder) const {
  if (host_.MayRemoveTree(folder)) return true;
  SendRefusal(folder);
  return false;
}

bool TCustomVekAction::MayRemoveMatches(std::string_view spec) const {
  if (host_.MayRemoveMatches(spec)) return true;
  const std::string_view folder = DirectoryPart(spec);
  SendRefusal(folder.empty() ? "." : folder);
  return false;
}

void TCustomVekAction::SendRefusal(std::string_view folder) const {
  SendMessage("Refused : " + std::string(folder) + " is protected (--no-preserve-root allows it)");
}
