#include "pages/VekVariablesSaveLoadForm.h"

TVariablesSaveLoadForm::TVariablesSaveLoadForm() : TActionFrame("Variables") {
  ButtonEdit("txtIniFile", "INIFile")
      .Hint("Ini file that holds the variables")
      .BrowsesForFile("Select Ini File", "Configuration files(*.ini)|*.ini", "*.ini");
  Edit("txtSection", "SectionName").Hint("Section");
  Memo("memVariables", "Variables").Hint("Names of the variables, one a line");
}
