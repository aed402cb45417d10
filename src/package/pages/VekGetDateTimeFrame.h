#pragma once

#include "forms/Vekpluginapi.h"
#include "interaction/VekDateTimeAction.h"

class TGetDateTimeFrame final : public TActionFrame<TDateTimeAction> {
 public:
  static constexpr std::string_view kClassName = "TGetDateTimeFrame";
  TGetDateTimeFrame();
};
