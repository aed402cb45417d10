#include "pages/VekListIteratorFrame.h"

TListIteratorFrame::TListIteratorFrame() : TActionFrame("List Iterator") {
  Edit("txtVariable", "LoopVariable").Hint("Variable that receives the item of each pass");
  Memo("memItems", "ListOfItems").Hint("Items, one a line; variables are expanded");
}
