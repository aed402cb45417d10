#pragma once

#include "checksum/VekFileCRCAction.h"
#include "forms/Vekpluginapi.h"

class TFileCRCFrame final : public TActionFrame<TVekFileCRCAction> {
 public:
  static constexpr std::string_view kClassName = "TFileCRCFrame";
  TFileCRCFrame();
};
