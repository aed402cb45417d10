#pragma once

#include "forms/Vekpluginapi.h"
#include "interaction/VekExtractFileVerInfoAction.h"

class TExtractFileVersionInfoFrame final : public TActionFrame<TVekExtractFileVerInfoAction> {
 public:
  static constexpr std::string_view kClassName = "TExtractFileVersionInfoFrame";
  TExtractFileVersionInfoFrame();
};
