#pragma once

#include "checksum/VekFileCRCAction.h"
#include "pages/VekFileChecksumFrame.h"

class TFileCRCFrame final : public TFileChecksumFrame<TVekFileCRCAction> {
 public:
  static constexpr std::string_view kClassName = "TFileCRCFrame";
  TFileCRCFrame();
};
