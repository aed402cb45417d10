#include "pages/VekExtractFileVersionInfoFrame.h"

TExtractFileVersionInfoFrame::TExtractFileVersionInfoFrame() : TActionFrame("Version Info") {
  ButtonEdit("txtFileName", "FileName")
      .Hint("Program or library")
      .BrowsesForFile("Select File", "Programs and Libraries (*.exe;*.dll)|*.exe;*.dll|All Files (*.*)|*.*");
  Heading("Variables");
  ComboBox("cbFileVersion", "FileVersionVar").Hint("File version");
  ComboBox("cbProductVersion", "ProductVersionVar").Hint("Product version");
  ComboBox("cbMajor", "MajorVar").Hint("Major number");
  ComboBox("cbMinor", "MinorVar").Hint("Minor number");
  ComboBox("cbRelease", "ReleaseVar").Hint("Release number");
  ComboBox("cbBuild", "BuildVar").Hint("Build number");
  Heading("Further Entries");
  Memo("memStringNames", "StringNames").Hint("Names such as CompanyName, one a line");
  Memo("memStringVars", "StringVars").Hint("Variables that receive them, in the same order");
  CheckBox("chkFailIfNotFound", "Fail if not Found", "FailIfNotFound");
}
