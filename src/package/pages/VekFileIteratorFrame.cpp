#include "pages/VekFileIteratorFrame.h"

#include "pages/Vekfilters.h"

namespace {

constexpr std::string_view kSpecControls[] = {"txtFileSpec", "chkRecurse", "chkIncludePath", "chkAnyFile"};
constexpr std::string_view kSetControls[] = {"txtFileSet", "chkRefreshBefore", "chkRefreshAfterEach"};

}  // namespace

TFileIteratorFrame::TFileIteratorFrame()
    : TActionFrame("File Iterator"),
      fileSet_(
          RadioButton("rbFileSet", "Use File Set", "UseFileSet", true).OnChange([this] { EnableMode(); })) {
  Edit("txtVariable", "VariableName").Hint("Variable that receives the file of each pass");
  RadioButton("rbFileSpec", "Use File Spec", "UseFileSet", false).OnChange([this] { EnableMode(); });
  ButtonEdit("txtFileSpec", "FileSpec").Hint("Files to iterate").BrowsesForFile("Select File", kAllFiles);
  auto& recurse = CheckBox("chkRecurse", "Recurse Sub Directories", "Recurse");
  auto& includePath = CheckBox("chkIncludePath", "Include File Path", "IncludeFilePath");
  recurse.OnChange([&recurse, &includePath] {
    if (recurse.Checked()) includePath.SetChecked(true);
  });
  includePath.OnChange([&recurse, &includePath] {
    if (!includePath.Checked()) recurse.SetChecked(false);
  });
  CheckBox("chkAnyFile", "Find Any File", "FindAnyFile");
  Edit("txtFileSet", "FileSetName").Hint("Name of the project's file set");
  CheckBox("chkRefreshBefore", "Refresh Before Iterating", "FileSetRefreshBefore");
  CheckBox("chkRefreshAfterEach", "Refresh After Each Pass", "FileSetRefreshAfterEach");
}

void TFileIteratorFrame::ReadActionData(TVekAction& action) {
  TActionFrame::ReadActionData(action);
  EnableMode();
}

/// Only the controls of the chosen mode can be used.
void TFileIteratorFrame::EnableMode() {
  for (std::string_view name : kSpecControls) FindControl(name)->SetEnabled(!fileSet_.Checked());
  for (std::string_view name : kSetControls) FindControl(name)->SetEnabled(fileSet_.Checked());
}
