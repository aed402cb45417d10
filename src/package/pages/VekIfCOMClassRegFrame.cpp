#include "pages/VekIfCOMClassRegFrame.h"

TVekIfCOMClassRegFrame::TVekIfCOMClassRegFrame() : TActionFrame("COM Class") {
  Heading("Class");
  RadioButton("rbProgID", "Programmatic ID", "UseProgID", true);
  Edit("txtProgID", "ProgID").Hint("Programmatic identifier");
  RadioButton("rbCLSID", "Class ID (GUID)", "UseProgID", false);
  Edit("txtCLSID", "CLSID").Hint("Class identifier");
  Heading("Condition");
  CheckBox("chkInvert", "If Class is not Registered", "Invert");
  CheckBox("chkFail", "Fail When Condition is not Met", "FailIfNotRegistered");
}
