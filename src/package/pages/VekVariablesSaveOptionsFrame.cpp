#include "pages/VekVariablesSaveOptionsFrame.h"

TVariablesSaveOptionsFrame::TVariablesSaveOptionsFrame() : TActionFrame("Options") {
  CheckBox("chkEraseSection", "Erase Section Before Saving", "EraseSection");
}
