#include "pages/VekMoveDirectoryFrame.h"

TMoveDirectoryFrame::TMoveDirectoryFrame() : TActionFrame("Details") {
  Heading("Source");
  ButtonEdit("txtDirectory", "Directory").Hint("Directory to move").BrowsesForDirectory("Select Directory");
  Heading("Destination");
  ButtonEdit("txtDestinationDirectory", "DestinationDirectory")
      .Hint("What it is called afterwards")
      .BrowsesForDirectory("Select Directory");
}
