#include "pages/VekIniFileIteratorFrame.h"

#include "pages/Vekeditors.h"

TIniFileIteratorFrame::TIniFileIteratorFrame() : TActionFrame("Ini File Iterator") {
  ButtonEdit("txtIniFile", "IniFilename").Hint("Ini file to iterate").BrowsesForFile(kIniFileNameEdit.dialog);
  const auto enable = [this] { EnableMode(); };
  sections_ = &RadioButton("rbSections", "Iterate Sections", "IteratorMode", TIniIteratorMode::iiSections)
                   .OnChange(enable);
  sectionsVar_ = &ComboBox("cmbSectionsVar", "SectionsVar").Hint("Variable that receives the section's name");
  RadioButton("rbValues", "Iterate Values of a Section", "IteratorMode", TIniIteratorMode::iiValues)
      .OnChange(enable);
  sectionName_ = &Edit("txtSectionName", "SectionName").Hint("Section");
  nameVariable_ = &ComboBox("cmbNameVariable", "NameVariable").Hint("Variable that receives the name");
  valueVariable_ = &ComboBox("cmbValueVariable", "ValueVariable").Hint("Variable that receives the value");
}

/// The variables may be others each time the page is shown.
void TIniFileIteratorFrame::InitPage(TVekAction& action) {
  TActionFrame::InitPage(action);
  const StringList names = TVariableNameEditor::VariableNames();
  for (TComboBox* variable : {sectionsVar_, nameVariable_, valueVariable_}) variable->Items(names);
}

void TIniFileIteratorFrame::ReadActionData(TVekAction& action) {
  TActionFrame::ReadActionData(action);
  EnableMode();
}

/// Only the controls of the chosen mode can be used.
void TIniFileIteratorFrame::EnableMode() {
  sectionsVar_->SetEnabled(sections_->Checked());
  for (TControl* control : std::initializer_list<TControl*>{sectionName_, nameVariable_, valueVariable_}) {
    control->SetEnabled(!sections_->Checked());
  }
}
