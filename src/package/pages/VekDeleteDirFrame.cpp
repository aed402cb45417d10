#include "pages/VekDeleteDirFrame.h"

TDeleteDirFrame::TDeleteDirFrame() : TActionFrame("Details") {
  Heading("Directory");
  ButtonEdit("txtFileOrDirectory", "FileOrDirectory")
      .Hint("Directory to delete")
      .BrowsesForDirectory("Select Directory");
  Heading("Options");
  CheckBox("chkDeleteTree", "Delete Tree", "DeleteTree");
  CheckBox("chkDeleteReadOnly", "Delete Read Only Directories", "DeleteReadOnly");
  CheckBox("chkDeleteHidden", "Delete Hidden Directories", "DeleteHidden");
  CheckBox("chkLogDeletedFiles", "Log Deleted Files", "LogDeletedFiles");
}
