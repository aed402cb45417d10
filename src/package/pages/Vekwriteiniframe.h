#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/Vekinifile.h"

class TWriteIniFrame final : public TActionFrame<TWriteIniFileAction> {
 public:
  static constexpr std::string_view kClassName = "TWriteIniFrame";
  TWriteIniFrame();
};
