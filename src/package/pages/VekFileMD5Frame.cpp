#include "pages/VekFileMD5Frame.h"

TFileMD5Frame::TFileMD5Frame() : TFileChecksumFrame("MD5", "MD5", "FailIfDiffToMD5", "CompareToMD5") {}
