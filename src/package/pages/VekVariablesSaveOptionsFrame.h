#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekVariablesSaveLoadAction.h"

class TVariablesSaveOptionsFrame final : public TActionFrame<TVekVariablesSaveAction> {
 public:
  static constexpr std::string_view kClassName = "TVariablesSaveOptionsFrame";
  TVariablesSaveOptionsFrame();
};
