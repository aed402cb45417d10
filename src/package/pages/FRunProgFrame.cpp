#include "pages/FRunProgFrame.h"

#include "pages/VekRunProgEditors.h"

TRunProgramFrame::TRunProgramFrame() : TRunFrame("Program") {
  Heading("Program");
  ButtonEdit("txtProgramFile", "ProgramName")
      .Hint("Program to execute")
      .BrowsesForFile(TRunProgEditor::kTitle, TRunProgEditor::kFilter, TRunProgEditor::kExtension);
  Edit("txtParams", "Params").Hint("Command line parameters");
  ButtonEdit("txtStartDir", "StartInDir")
      .Hint("Folder to start in")
      .BrowsesForDirectory(TStartDirectoryEditor::kTitle);
  AddOptions();
}

TRunDosCmdFrame::TRunDosCmdFrame() : TRunFrame("Command") {
  Heading("Dos Command");
  Memo("memCommand", "Command").Hint("Command to execute");
  ButtonEdit("txtStartDir", "StartInDir")
      .Hint("Folder to start in")
      .BrowsesForDirectory(TStartDirectoryEditor::kTitle);
  AddOptions();
}
