#pragma once

#include "forms/Vekpluginapi.h"
#include "interaction/VekVariablePromptAction.h"

class TVekVariablePromptFrame final : public TActionFrame<TVekVariablePromptAction> {
 public:
  static constexpr std::string_view kClassName = "TVekVariablePromptFrame";
  TVekVariablePromptFrame();
};
