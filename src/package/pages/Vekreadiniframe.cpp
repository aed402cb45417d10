#include "pages/Vekreadiniframe.h"

#include "pages/Vekeditors.h"

TReadIniFrame::TReadIniFrame() : TActionFrame("Read Ini File") {
  Heading("Ini File");
  ButtonEdit("txtIniFile", "IniFile").Hint("Ini file to read").BrowsesForFile(kIniFileNameEdit.dialog);
  Heading("Value");
  Edit("txtSection", "Section").Hint("Section");
  Edit("txtValueName", "ValueName").Hint("Value name");
  ComboBox("cmbValueType", "ValueType").Items({"String", "Boolean", "Integer"}).Hint("Value type");
  Edit("txtDefaultValue", "DefaultValue").Hint("Value used when the file has none");
  Heading("Variable");
  ComboBox("cmbVariableName", "VariableName").Hint("Variable that receives the value");
}
