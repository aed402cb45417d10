#include "pages/VekFolderIteratorFrame.h"

TFolderIteratorFrame::TFolderIteratorFrame() : TActionFrame("Folder Iterator") {
  Edit("txtVariable", "VariableName").Hint("Variable that receives the folder of each pass");
  ButtonEdit("txtStartingFolder", "StartingFolder")
      .Hint("Folder whose sub-folders are iterated")
      .BrowsesForDirectory("Select Directory");
  auto& recurse = CheckBox("chkRecurse", "Recurse Sub Directories", "Recurse");
  auto& includePath = CheckBox("chkIncludePath", "Include Folder Path", "IncludeFolderPath");
  recurse.OnChange([&recurse, &includePath] {
    if (recurse.Checked()) includePath.SetChecked(true);
  });
  includePath.OnChange([&recurse, &includePath] {
    if (!includePath.Checked()) recurse.SetChecked(false);
  });
}
