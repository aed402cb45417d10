#include "pages/VekCheckFileFrame.h"

#include "forms/Vekpropertyeditors.h"

TCheckFileFrame::TCheckFileFrame() : TActionFrame("Details") {
  Heading("File or Directory");
  ButtonEdit("txtFileOrDirectory", "FileOrDirectory")
      .Hint("File or directory to check for")
      .BrowsesForFile(kFileNameEdit.dialog);
  Heading("Result");
  RadioButton("rbFailIfExists", "Fail if It Exists", "ExistsMode", TFileExistsMode::feFailIfExists);
  RadioButton("rbFailIfMissing", "Fail if It Is Missing", "ExistsMode", TFileExistsMode::feFailIfMissing);
  RadioButton("rbIgnore", "Never Fail", "ExistsMode", TFileExistsMode::feIgnore);
  Heading("Variable");
  Edit("txtVariable", "Variable").Hint("Variable that receives whether it exists");
}
