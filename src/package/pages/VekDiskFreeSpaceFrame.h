#pragma once

#include "forms/Vekpluginapi.h"
#include "interaction/VekDiskInfoAction.h"

class TDiskFreeSpaceFrame final : public TActionFrame<TDiskInfoAction> {
 public:
  static constexpr std::string_view kClassName = "TDiskFreeSpaceFrame";
  TDiskFreeSpaceFrame();
};
