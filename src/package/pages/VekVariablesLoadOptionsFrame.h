#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekVariablesSaveLoadAction.h"

class TVariablesLoadOptionsFrame final : public TActionFrame<TVekVariablesLoadAction> {
 public:
  static constexpr std::string_view kClassName = "TVariablesLoadOptionsFrame";
  TVariablesLoadOptionsFrame();
};
