#include "pages/VekFileCRCFrame.h"

TFileCRCFrame::TFileCRCFrame() : TActionFrame("File CRC32") {
  Heading("File");
  ButtonEdit("txtFileName", "FileName")
      .Hint("File to compute the CRC32 of")
      .BrowsesForFile("Select File", "All Files|*.*");
  Edit("txtVariable", "VekVariable").Hint("Variable that receives the CRC32");
  Heading("Compare");
  CheckBox("chkFailIfDiffToFile", "Fail if Different to File", "FailIfDiffToFile");
  ButtonEdit("txtCompareToFile", "CompareToFile")
      .Hint("File to compare with")
      .BrowsesForFile("Select File", "All Files|*.*");
  CheckBox("chkFailIfDiffToCRC", "Fail if Different to CRC", "FailIfDiffToCRC");
  Edit("txtCompareToCRC", "CompareToCRC").Hint("CRC to compare with");
}
