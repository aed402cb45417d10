#include "pages/VekVariablesLoadOptionsFrame.h"

TVariablesLoadOptionsFrame::TVariablesLoadOptionsFrame() : TActionFrame("Options") {
  Memo("memTypes", "VariableTypes").Hint("STRING, BOOLEAN or INTEGER for each variable, one a line");
  CheckBox("chkFailIfNotDefined", "Fail if a Variable Is Not Defined", "FailIfVariableNotDefined");
  CheckBox("chkFailIfNotInFile", "Fail if a Variable Is Not in the Ini File", "FailIfVariableNotInIniFile");
  CheckBox("chkCreateInFile", "Add Missing Variables to the Ini File", "CreateVarInINIifNotExists");
  CheckBox("chkIgnoreNoFile", "Ignore a Missing Ini File", "IgnoreFileNotFound");
}
