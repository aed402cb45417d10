#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/Vekinifile.h"

class TReadIniFrame final : public TActionFrame<TReadIniFileAction> {
 public:
  static constexpr std::string_view kClassName = "TReadIniFrame";
  TReadIniFrame();
};
