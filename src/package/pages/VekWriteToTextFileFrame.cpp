#include "pages/VekWriteToTextFileFrame.h"

#include "pages/Vekfilters.h"

TWriteToTextFileFrame::TWriteToTextFileFrame() : TActionFrame("Write to File") {
  Heading("File");
  ButtonEdit("txtFileName", "FileName")
      .Hint("File to change")
      .BrowsesForFile("Select File", kTextFiles, ".txt");
  CheckBox("chkCreateIfNotExists", "Create File if Missing", "CreateIfNotExists");
  Heading("New Content");
  Memo("memNewContent", "NewContent").Hint("Text to add");
  Heading("Position");
  RadioButton("rbToStart", "Start of File", "WriteToPosition", TVekWriteToPos::toStart);
  RadioButton("rbToEnd", "End of File", "WriteToPosition", TVekWriteToPos::toEnd);
}
