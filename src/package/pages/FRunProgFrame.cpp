#include "pages/FRunProgFrame.h"

#include "pages/Vekeditors.h"

TRunProgramFrame::TRunProgramFrame() : TRunFrame("Program") {
  Heading("Program");
  ButtonEdit("txtProgramFile", "ProgramName")
      .Hint("Program to execute")
      .BrowsesForFile(kRunProgEditor.dialog);
  Edit("txtParams", "Params").Hint("Command line parameters");
  ButtonEdit("txtStartDir", "StartInDir")
      .Hint("Folder to start in")
      .BrowsesForDirectory(kStartDirectoryEditor.dialog.title);
  AddOptions();
}

TRunDosCmdFrame::TRunDosCmdFrame() : TRunFrame("Command") {
  Heading("Dos Command");
  Memo("memCommand", "Command").Hint("Command to execute");
  ButtonEdit("txtStartDir", "StartInDir")
      .Hint("Folder to start in")
      .BrowsesForDirectory(kStartDirectoryEditor.dialog.title);
  AddOptions();
}
