#include "pages/VekFileMD5Frame.h"

TFileMD5Frame::TFileMD5Frame() : TActionFrame("File MD5") {
  Heading("File");
  ButtonEdit("txtFileName", "FileName")
      .Hint("File to compute the MD5 of")
      .BrowsesForFile("Select File", "All Files|*.*");
  Edit("txtVariable", "VekVariable").Hint("Variable that receives the MD5");
  Heading("Compare");
  CheckBox("chkFailIfDiffToFile", "Fail if Different to File", "FailIfDiffToFile");
  ButtonEdit("txtCompareToFile", "CompareToFile")
      .Hint("File to compare with")
      .BrowsesForFile("Select File", "All Files|*.*");
  CheckBox("chkFailIfDiffToMD5", "Fail if Different to MD5", "FailIfDiffToMD5");
  Edit("txtCompareToMD5", "CompareToMD5").Hint("MD5 to compare with");
}
