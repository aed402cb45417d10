#include "pages/VekConcatFilesFrame.h"

#include "pages/Vekfilters.h"

TConcatFilesFrame::TConcatFilesFrame() : TActionFrame("Concatenate Files") {
  Heading("Source Files");
  ButtonEdit("txtSourceFile1", "SourceFile1").Hint("First file").BrowsesForFile("Select File", kAllFiles);
  ButtonEdit("txtSourceFile2", "SourceFile2").Hint("Second file").BrowsesForFile("Select File", kAllFiles);
  Heading("Destination File");
  ButtonEdit("txtDestinationFile", "DestinationFile")
      .Hint("File to write")
      .BrowsesForFile("Select File", kAllFiles);
  Heading("If the Destination File Exists");
  RadioButton("rbFail", "Fail", "DestExistsAction", TDestExistsAct::FailIfExists);
  RadioButton("rbAppend", "Append to It", "DestExistsAction", TDestExistsAct::AppendIfExists);
  RadioButton("rbOverwrite", "Overwrite It", "DestExistsAction", TDestExistsAct::OverwriteIfExists);
}
