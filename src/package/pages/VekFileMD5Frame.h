#pragma once

#include "checksum/VekFileMD5Action.h"
#include "pages/VekFileChecksumFrame.h"

class TFileMD5Frame final : public TFileChecksumFrame<TVekFileMD5Action> {
 public:
  static constexpr std::string_view kClassName = "TFileMD5Frame";
  TFileMD5Frame();
};
