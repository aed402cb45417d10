#include "pages/VekReadFileFrame.h"

#include "pages/Vekfilters.h"

TReadFileFrame::TReadFileFrame() : TActionFrame("Read File") {
  Heading("File");
  ButtonEdit("txtFileName", "FileName")
      .Hint("File to read")
      .BrowsesForFile("Select File", kTextFiles, ".txt");
  Heading("Variable");
  CheckBox("chkPutContentsInVar", "Put File Contents in Variable", "PutContentsInVar");
  Edit("txtVariable", "VekVariable").Hint("Variable that receives the contents");
  CheckBox("chkEscapeVariables", "Escape Variables in the Contents", "EscapeVariables");
}
