#include "pages/Vekwriteiniframe.h"

#include "pages/Vekeditors.h"

TWriteIniFrame::TWriteIniFrame() : TActionFrame("Write Ini File") {
  Heading("Ini File");
  ButtonEdit("txtIniFile", "IniFile").Hint("Ini file to write to").BrowsesForFile(kIniFileNameEdit.dialog);
  CheckBox("chkAllowCreate", "Create Ini File if Missing", "AllowCreate");
  Heading("Value");
  Edit("txtSection", "Section").Hint("Section");
  Edit("txtValueName", "ValueName").Hint("Value name");
  ComboBox("cmbValueType", "ValueType").Items({"String", "Boolean", "Integer"}).Hint("Value type");
  Edit("txtNewValue", "NewValue").Hint("Value to write");
}
