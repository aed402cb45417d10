#include "forms/Vekpropertyeditors.h"

#include "coreapi/Vekservices.h"
#include "coreapi/Vekutils.h"

TPropertyEditor::~TPropertyEditor() = default;
TVariableNameEditor::~TVariableNameEditor() = default;
TFileNameEdit::~TFileNameEdit() = default;
TSelectDirectoryEditor::~TSelectDirectoryEditor() = default;

std::string TPropertyEditor::GetValue() const { return PropertyToText(property_, property_.get(action_)); }

void TPropertyEditor::SetValue(std::string_view text) {
  const auto value = PropertyFromText(property_, text);
  if (!value) RaiseMisfit(property_, text);
  property_.set(action_, *value);
}

bool TPropertyEditor::Edit() { return false; }
StringList TPropertyEditor::GetValues() const { return {}; }

StringList TVariableNameEditor::VariableNames() {
  StringList names;
  if (auto* design = VekDesignApplicationServices()) design->GetVariableNames(names);
  return names;
}

bool TFileNameEdit::Edit() {
  std::string fileName = GetValue();
  if (!VekBrowseForFile(GetTitle(), fileName, GetFilter(), GetDefaultExtension())) return false;
  SetValue(fileName);
  return true;
}

bool TSelectDirectoryEditor::Edit() {
  std::string folder = GetValue();
  if (!VekBrowseForDirectory(GetTitle(), folder)) return false;
  SetValue(folder);
  return true;
}
