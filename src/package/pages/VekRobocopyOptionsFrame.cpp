#include "pages/VekRobocopyOptionsFrame.h"

TRobocopyOptionsFrame::TRobocopyOptionsFrame() : TBoundFrame("Robocopy") {
  Heading("Robocopy Location");
  ButtonEdit("txtRobocopyLocation", "RobocopyPath")
      .BrowsesForFile("Select File", "Robocopy.exe|Robocopy.exe");
}
