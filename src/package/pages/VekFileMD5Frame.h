#pragma once

#include "checksum/VekFileMD5Action.h"
#include "forms/Vekpluginapi.h"

class TFileMD5Frame final : public TActionFrame<TVekFileMD5Action> {
 public:
  static constexpr std::string_view kClassName = "TFileMD5Frame";
  TFileMD5Frame();
};
