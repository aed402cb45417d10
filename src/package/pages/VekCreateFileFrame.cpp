#include "pages/VekCreateFileFrame.h"

#include "pages/Vekfilters.h"

TCreateFileFrame::TCreateFileFrame() : TActionFrame("Create File") {
  Heading("New File");
  ButtonEdit("txtNewFileName", "NewFileName")
      .Hint("File to create")
      .BrowsesForFile("Select File", kTextFiles, ".txt");
  Heading("File Contents");
  Memo("memFileContents", "FileContents").Hint("Text to write");
  Heading("Options");
  CheckBox("chkOverwriteExisting", "Overwrite Existing File", "OverwriteExisting");
  CheckBox("chkCreateDirectory", "Create Directory if Required", "CreateDirectory");
}
