#include "pages/VekReadTextFileIteratorFrame.h"

#include "pages/Vekfilters.h"

TReadTextFileIteratorFrame::TReadTextFileIteratorFrame() : TActionFrame("File Contents Iterator") {
  Edit("txtVariable", "VariableName").Hint("Variable that receives the line of each pass");
  ButtonEdit("txtFileName", "TextFileName")
      .Hint("File whose lines are iterated")
      .BrowsesForFile("Select File", kTextFiles, ".txt");
}
