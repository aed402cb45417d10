#include "forms/Vekpropertyeditors.h"

#include "coreapi/Vekutils.h"

TPropertyEditor::~TPropertyEditor() = default;
TFileNameEdit::~TFileNameEdit() = default;
TSelectDirectoryEditor::~TSelectDirectoryEditor() = default;

bool TFileNameEdit::Edit(std::string& text) {
  return VekBrowseForFile(GetTitle(), text, GetFilter(), GetDefaultExtension());
}

bool TSelectDirectoryEditor::Edit(std::string& text) { return VekBrowseForDirectory(GetTitle(), text); }
