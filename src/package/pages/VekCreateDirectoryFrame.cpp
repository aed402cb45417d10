#include "pages/VekCreateDirectoryFrame.h"

TCreateDirectoryFrame::TCreateDirectoryFrame() : TActionFrame("Details") {
  Heading("Directory");
  ButtonEdit("txtFileOrDirectory", "FileOrDirectory")
      .Hint("Directory to create")
      .BrowsesForDirectory("Select Directory");
  CheckBox("chkForce", "Force Directories", "Force");
}
