#pragma once

#include "forms/Vekpluginapi.h"
#include "process/VekRobocopyOptions.h"

class TRobocopyOptionsFrame final : public TOptionsFrame<TVekRobocopyOptions> {
 public:
  static constexpr std::string_view kClassName = "TRobocopyOptionsFrame";
  TRobocopyOptionsFrame();
};
