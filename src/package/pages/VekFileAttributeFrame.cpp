#include "pages/VekFileAttributeFrame.h"

#include "pages/VekFileAttributeEditor.h"

TFileAttributeFrame::TFileAttributeFrame() : TActionFrame("Details") {
  Heading("File Spec");
  ButtonEdit("txtFileSpec", "FileSpec").Hint("Files to change").BrowsesForFile(kFileNameEdit.dialog);
  Heading("Attributes");
  const StringList choices(std::begin(kAttributeSettingTexts), std::end(kAttributeSettingTexts));
  ComboBox("cboReadOnly", "ReadOnly").Caption("Read Only").Items(choices);
  ComboBox("cboSystemFile", "SystemFile").Caption("System File").Items(choices);
  ComboBox("cboArchive", "Archive").Caption("Archive").Items(choices);
  ComboBox("cboHidden", "Hidden").Caption("Hidden File").Items(choices);
  Heading("Options");
  CheckBox("chkRecurse", "Recurse Directories", "Recurse");
  CheckBox("chkLogAllFiles", "Log All Files", "LogAllFiles");
}
