#include "pages/VekFileCRCFrame.h"

TFileCRCFrame::TFileCRCFrame() : TFileChecksumFrame("CRC32", "CRC", "FailIfDiffToCRC", "CompareToCRC") {}
