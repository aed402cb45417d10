#include "pages/VekShellExecuteFrame.h"

TVekShellExecuteFrame::TVekShellExecuteFrame() : TActionFrame("Shell Execute") {
  Heading("File");
  ButtonEdit("txtFileSpec", "FileSpec")
      .Hint("Document or program")
      .BrowsesForFile("Select File", "All Files (*.*)|*.*");
  ComboBox("cbAction", "Action").Hint("What to do with it").Items({"open", "print", "edit", "explore"});
  Edit("txtParameters", "Parameters").Hint("Command line parameters");
  ButtonEdit("txtWorkingDir", "WorkingDir")
      .Hint("Folder to start in")
      .BrowsesForDirectory("Select Start Directory");
  Heading("Options");
  CheckBox("chkWaitFor", "Wait For Completion", "WaitForCompletion");
}
