#include "pages/VekPromptForFileOrDirFrame.h"

TPromptForFileOrDirFrame::TPromptForFileOrDirFrame() : TActionFrame("Prompt") {
  Edit("txtPrompt", "PromptText").Hint("Text to ask with");
  RadioButton("rbFile", "File", "PromptFor", TPromptForFileOrDir::pfFile);
  RadioButton("rbDirectory", "Directory", "PromptFor", TPromptForFileOrDir::pfDirectory);
  ComboBox("cbVariables", "VekVariable").Hint("Variable that receives the path");
  Heading("Options");
  Edit("txtInitialPath", "InitialPath").Hint("Path that is offered");
  Edit("txtFilter", "Filter").Hint("Kinds of file to choose from");
  CheckBox("chkMustExist", "Must Exist", "MustExist");
  CheckBox("chkFailOnCancel", "Fail on Cancel", "FailOnCancel");
}
