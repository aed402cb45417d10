#include "pages/VekTouchFrame.h"

#include "forms/Vekpropertyeditors.h"

TTouchFrame::TTouchFrame() : TActionFrame("Details") {
  Heading("File Spec");
  ButtonEdit("txtFileSpec", "FileSpec").Hint("Files to touch").BrowsesForFile(kFileNameEdit.dialog);
  CheckBox("chkRecurse", "Recurse Directories", "Recurse");
  Heading("Date and Time");
  auto& useNow = CheckBox("chkUseNow", "Use Now", "UseNow");
  auto& dateTime = Edit("txtDateTime", "DateTime").Hint("Date and time to set");
  useNow.OnChange([&useNow, &dateTime] { dateTime.SetEnabled(!useNow.Checked()); });
  CheckBox("chkTouchDate", "Touch Date", "TouchDate");
  CheckBox("chkTouchTime", "Touch Time", "TouchTime");
  CheckBox("chkTouchReadOnly", "Touch Read Only Files", "TouchReadOnly");
}
