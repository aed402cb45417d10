#include "pages/Vekreadregistryframe.h"

#include "pages/Vekregeditors.h"

TReadRegistryFrame::TReadRegistryFrame() : TActionFrame("Registry") {
  Heading("Registry Key");
  root_ = &ComboBox("cboRegRoot").Caption("Root").Items(TRegRootPropertyEditor::Names());
  Edit("txtRegKey", "RegKey").Caption("Key Name").Hint("Key below the root");
  allowCreate_ = &CheckBox("chkAllowCreateKey", "Create Key if Missing");
  Heading("Value");
  Edit("txtRegValueName", "RegValueName").Caption("Value Name").Hint("Empty for the key's default value");
  type_ = &ComboBox("cboRegValType", "RegValType")
               .Caption("Value Type")
               .Items({"Integer", "String", "DWord", "Boolean"});
  value_ = &Edit("txtRegValue").Caption("Value");
  variable_ = &ComboBox("cboVekVariable").Caption("Variable").Hint("Variable that receives the value");
}

/// The variables may be others each time the page is shown.
void TReadRegistryFrame::InitPage(TVekAction& action) {
  TActionFrame::InitPage(action);
  const bool reads = dynamic_cast<TCustomReadRegValueAction*>(&action) != nullptr;
  const bool sets = dynamic_cast<TCustomSetRegValueAction*>(&action) != nullptr;
  type_->SetVisible(reads || sets);
  value_->SetVisible(sets);
  value_->SetCaption(sets ? "New Value" : "Value");
  allowCreate_->SetVisible(sets);
  variable_->SetVisible(reads);
  variable_->Items(TVariableNameEditor::VariableNames());
}

// What only one of the three publishes is bound to no property, and the root is shown by name.
void TReadRegistryFrame::ReadActionData(TVekAction& action) {
  TActionFrame::ReadActionData(action);
  root_->SetText(TRegRootPropertyEditor::NameOf(Edited(action).RegRoot));
  allowCreate_->SetChecked(Edited(action).AllowCreateKey);
  if (const auto* read = dynamic_cast<TCustomReadRegValueAction*>(&action)) {
    variable_->SetText(read->VekVariable);
  }
  if (const auto* set = dynamic_cast<TCustomSetRegValueAction*>(&action)) value_->SetText(set->RegValue);
}

void TReadRegistryFrame::WriteActionData(TVekAction& action) {
  TActionFrame::WriteActionData(action);
  if (const auto root = TRegRootPropertyEditor::RootOf(root_->Text())) Edited(action).RegRoot = *root;
  Edited(action).AllowCreateKey = allowCreate_->Checked();
  if (auto* read = dynamic_cast<TCustomReadRegValueAction*>(&action)) read->VekVariable = variable_->Text();
  if (auto* set = dynamic_cast<TCustomSetRegValueAction*>(&action)) set->RegValue = value_->Text();
}
