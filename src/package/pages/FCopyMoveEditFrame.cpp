#include "pages/FCopyMoveEditFrame.h"

#include "coreapi/Vekutils.h"
#include "pages/Vekfilters.h"

namespace {

/// The button chooses what the target is to be.
void BrowsesForTarget(TButtonEdit& target, const TCheckBox& isDir) {
  target.OnButtonClick([&target, &isDir] {
    std::string name = target.Text();
    const bool chosen = isDir.Checked() ? VekBrowseForDirectory("Select Directory", name)
                                        : VekBrowseForFile("Select File", name, kAllFiles);
    if (chosen) target.Enter(name);
  });
}

/// As the action's setter does it, so that the page shows what will be written.
void WildcardsNeedADirectory(TButtonEdit& source, TCheckBox& isDir) {
  source.OnChange([&source, &isDir] {
    if (source.Text().find_first_of("*?") != std::string::npos) isDir.SetChecked(true);
  });
}

}  // namespace

template <class Action>
TCheckBox& TCopyMoveFrame<Action>::AddFiles(std::string_view sourceHint) {
  this->Heading("Source");
  auto& source =
      this->ButtonEdit("txtSource", "FileSpec").Hint(sourceHint).BrowsesForFile("Select File", kAllFiles);
  this->Heading("Destination");
  auto& target = this->ButtonEdit("txtTarget", "Target").Hint("Destination file or directory");
  auto& isDir = this->CheckBox("chkTargetIsDir", "Destination Is a Directory", "TargetIsDir");
  BrowsesForTarget(target, isDir);
  WildcardsNeedADirectory(source, isDir);
  this->Heading("Options");
  return isDir;
}

template <class Action>
void TCopyMoveFrame<Action>::AddOptions() {
  this->CheckBox("chkForce", "Force Directories", "Force");
  this->CheckBox("chkFailIfExists", "Fail if Exists", "FailIfExists");
  this->CheckBox("chkOverwriteReadOnly", "Overwrite Read Only Files", "OverwriteReadOnly");
  this->CheckBox("chkClearAttributes", "Clear Attributes", "ClearAttributes");
  this->CheckBox("chkFailIfZero", "Fail if Zero Files Affected", "FailIfZeroFiles");
}

TCopyFrame::TCopyFrame() : TCopyMoveFrame("Copy Files") {
  auto& isDir = AddFiles("Files to copy");
  auto& recurse = CheckBox("chkRecurse", "Recurse Sub Directories", "Recurse");
  AddOptions();
  recurse.OnChange([&recurse, &isDir] {
    if (recurse.Checked()) isDir.SetChecked(true);
  });
  isDir.OnChange([&recurse, &isDir] {
    if (!isDir.Checked()) recurse.SetChecked(false);
  });
}

TMoveFrame::TMoveFrame() : TCopyMoveFrame("Move Files") {
  AddFiles("Files to move");
  AddOptions();
  CheckBox("chkStopOnAnyErrors", "Stop on Any Errors", "StopOnAnyErrors");
}
