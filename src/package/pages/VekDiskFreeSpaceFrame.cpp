#include "pages/VekDiskFreeSpaceFrame.h"

TDiskFreeSpaceFrame::TDiskFreeSpaceFrame() : TActionFrame("Disk Space") {
  ButtonEdit("txtDrive", "Drive").Hint("Drive, or a folder on it").BrowsesForDirectory("Select Directory");
  ComboBox("cmbUnit", "SpaceUnit").Items({"Bytes", "Kilobytes", "Megabytes", "Gigabytes"}).Hint("Unit");
  Heading("Variables");
  ComboBox("cbFreeSpace", "FreeSpaceVar").Hint("Variable that receives the free space");
  ComboBox("cbTotalSpace", "TotalSpaceVar").Hint("Variable that receives the total space");
  Heading("Options");
  CheckBox("chkFailIfLess", "Fail if Less Than", "FailIfLess");
  Edit("txtMinimumFree", "MinimumFree").Hint("Least free space, in the unit");
}
