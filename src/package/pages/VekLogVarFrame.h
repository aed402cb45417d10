#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekLogVariableValues.h"

class TLogVarFrame final : public TActionFrame<TVekLogVariablesAction> {
 public:
  static constexpr std::string_view kClassName = "TLogVarFrame";
  TLogVarFrame();
};
