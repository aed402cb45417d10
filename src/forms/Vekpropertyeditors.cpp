#include "forms/Vekpropertyeditors.h"

#include "coreapi/Vekservices.h"
#include "coreapi/Vekutils.h"

TPropertyEditor::~TPropertyEditor() = default;
TVariableNameEditor::~TVariableNameEditor() = default;
TFileNameEdit::~TFileNameEdit() = default;
TSelectDirectoryEditor::~TSelectDirectoryEditor() = default;

bool TPropertyEditor::Edit(std::string& /*text*/) { return false; }
StringList TPropertyEditor::GetValues() const { return {}; }

StringList TVariableNameEditor::GetValues() const {
  StringList names;
  if (auto* design = VekDesignApplicationServices()) design->GetVariableNames(names);
  return names;
}

bool TFileNameEdit::Edit(std::string& text) {
  return VekBrowseForFile(GetTitle(), text, GetFilter(), GetDefaultExtension());
}

bool TSelectDirectoryEditor::Edit(std::string& text) { return VekBrowseForDirectory(GetTitle(), text); }
