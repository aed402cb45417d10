#include "pages/Vekdeletefilesframe.h"

#include "pages/Vekfilters.h"

TDeleteFilesFrame::TDeleteFilesFrame() : TActionFrame("Details") {
  Heading("File Spec");
  ButtonEdit("txtSource", "FileSpec").Hint("Source Files").BrowsesForFile("Select File", kAllFiles);
  Heading("Options");
  CheckBox("chkDeleteReadOnly", "Delete Read Only Files", "DeleteReadOnly");
  CheckBox("chkDeleteHiddenFiles", "Delete Hidden Files", "DeleteHidden");
  CheckBox("chkFailIfZero", "Fail if Zero Files Affected", "FailIfNoFile");
}
