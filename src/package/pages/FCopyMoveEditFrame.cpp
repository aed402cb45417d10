#include "pages/FCopyMoveEditFrame.h"

#include "coreapi/Vekutils.h"

namespace {

constexpr std::string_view kAllFiles = "All Files (*.*)|*.*";

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

TCopyFrame::TCopyFrame() : TActionFrame("Copy Files") {
  Heading("Source");
  auto& source =
      ButtonEdit("txtSource", "FileSpec").Hint("Files to copy").BrowsesForFile("Select File", kAllFiles);
  Heading("Destination");
  auto& target = ButtonEdit("txtTarget", "Target").Hint("Destination file or directory");
  auto& isDir = CheckBox("chkTargetIsDir", "Destination Is a Directory", "TargetIsDir");
  Heading("Options");
  auto& recurse = CheckBox("chkRecurse", "Recurse Sub Directories", "Recurse");
  CheckBox("chkForce", "Force Directories", "Force");
  CheckBox("chkFailIfExists", "Fail if Exists", "FailIfExists");
  CheckBox("chkOverwriteReadOnly", "Overwrite Read Only Files", "OverwriteReadOnly");
  CheckBox("chkClearAttributes", "Clear Attributes", "ClearAttributes");
  CheckBox("chkFailIfZero", "Fail if Zero Files Affected", "FailIfZeroFiles");

  BrowsesForTarget(target, isDir);
  WildcardsNeedADirectory(source, isDir);
  recurse.OnChange([&] {
    if (recurse.Checked()) isDir.SetChecked(true);
  });
  isDir.OnChange([&] {
    if (!isDir.Checked()) recurse.SetChecked(false);
  });
}

TMoveFrame::TMoveFrame() : TActionFrame("Move Files") {
  Heading("Source");
  auto& source =
      ButtonEdit("txtSource", "FileSpec").Hint("Files to move").BrowsesForFile("Select File", kAllFiles);
  Heading("Destination");
  auto& target = ButtonEdit("txtTarget", "Target").Hint("Destination file or directory");
  auto& isDir = CheckBox("chkTargetIsDir", "Destination Is a Directory", "TargetIsDir");
  Heading("Options");
  CheckBox("chkForce", "Force Directories", "Force");
  CheckBox("chkFailIfExists", "Fail if Exists", "FailIfExists");
  CheckBox("chkOverwriteReadOnly", "Overwrite Read Only Files", "OverwriteReadOnly");
  CheckBox("chkClearAttributes", "Clear Attributes", "ClearAttributes");
  CheckBox("chkFailIfZero", "Fail if Zero Files Affected", "FailIfZeroFiles");
  CheckBox("chkStopOnAnyErrors", "Stop on Any Errors", "StopOnAnyErrors");

  BrowsesForTarget(target, isDir);
  WildcardsNeedADirectory(source, isDir);
}
