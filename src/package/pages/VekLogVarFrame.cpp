#include "pages/VekLogVarFrame.h"

TLogVarFrame::TLogVarFrame() : TActionFrame("Log Variables") {
  Memo("memVariables", "VariablesToLog").Hint("Names of the variables, one a line");
  CheckBox("chkFailIfNotDefined", "Fail if a Variable Is Not Defined", "FailIfNotDefined");
}
