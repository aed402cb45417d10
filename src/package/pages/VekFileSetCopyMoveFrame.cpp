#include "pages/VekFileSetCopyMoveFrame.h"

TFileSetCopyMoveFrame::TFileSetCopyMoveFrame() : TActionFrame("FileSet Copy/Move") {
  Edit("txtFileSetName", "FileSetName").Caption("FileSet").Hint("Name of the project's file set");
  CheckBox("chkRefreshBefore", "Refresh File List Before", "RefreshBefore");
  CheckBox("chkFailIfFileNotFound", "Fail If File Not Found", "FailIfFileNotFound");
  Heading("Destination Folder");
  ButtonEdit("txtDestinationFolder", "DestinationFolder")
      .Hint("Folder to copy or move the files into")
      .BrowsesForDirectory("Select Directory");
  CheckBox("chkRecreateHierarchy", "Recreate Hierarchy", "RecreateHierarchy");
  Heading("If the Destination File Exists");
  ComboBox("cboOverwriteMode", "OverwriteMode")
      .Items({"Fail", "Overwrite", "Overwrite, read only files too", "Skip the file"});
  Heading("Options");
  RadioButton("rbCopy", "Copy Files", "Move", false);
  RadioButton("rbMove", "Move Files", "Move", true);
  CheckBox("chkClearAttributes", "Clear Attributes", "ClearAttributes");
}
