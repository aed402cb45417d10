#include "pages/VekRenameDirFrame.h"

TRenameDirFrame::TRenameDirFrame() : TActionFrame("Details") {
  Heading("Directory");
  RadioButton("rbRenameDir", "Rename a Directory", "RenameDir", true);
  ButtonEdit("txtSourceDirectory", "SourceDirectory")
      .Hint("Directory to rename")
      .BrowsesForDirectory("Select Directory");
  Heading("File");
  RadioButton("rbRenameFile", "Rename a File", "RenameDir", false);
  ButtonEdit("txtSourceFile", "SourceFile")
      .Hint("File to rename")
      .BrowsesForFile("Select File", "All Files (*.*)|*.*");
  Heading("New Name");
  Edit("txtNewDirName", "NewDirName").Hint("New name, without a path");
}
