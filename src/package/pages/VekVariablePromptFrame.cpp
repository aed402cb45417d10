#include "pages/VekVariablePromptFrame.h"

TVekVariablePromptFrame::TVekVariablePromptFrame() : TActionFrame("Variables") {
  Edit("txtTitle", "Title").Hint("Heading above the prompts");
  Heading("Variables");
  Memo("memVariables", "Variables").Hint("Variables to ask for, one a line");
  Memo("memPrompts", "Prompts").Hint("Texts to ask with, in the same order");
  Memo("memSecrets", "SecretVariables").Hint("Variables that no log shows");
  Heading("Options");
  CheckBox("chkOnlyIfBlank", "Ask only if Blank", "AskOnlyIfBlank");
  CheckBox("chkFailOnCancel", "Fail on Cancel", "FailOnCancel");
}
