#include "pages/VekFileCompareFrame.h"

#include "pages/Vekfilters.h"

TFileCompareFrame::TFileCompareFrame() : TActionFrame("File Compare") {
  Heading("Files");
  ButtonEdit("txtFileA", "FileA").Hint("First file").BrowsesForFile("Select File", kAllFiles);
  ButtonEdit("txtFileB", "FileB").Hint("Second file").BrowsesForFile("Select File", kAllFiles);
  Heading("Compare By");
  CheckBox("chkCompareDate", "Date", "CompareDate");
  CheckBox("chkCompareSize", "Size", "CompareSize");
  CheckBox("chkCompareMD5", "MD5 Checksum", "CompareMD5");
  Heading("Outcome");
  CheckBox("chkFail", "Fail if the Files are the Same", "Fail");
  CheckBox("chkInverted", "Invert the Outcome", "Inverted");
}
