#pragma once

#include "forms/Vekpluginapi.h"
#include "interaction/VekPromptForFileOrDirAction.h"

class TPromptForFileOrDirFrame final : public TActionFrame<TVekpromptForFileOrDirAction> {
 public:
  static constexpr std::string_view kClassName = "TPromptForFileOrDirFrame";
  TPromptForFileOrDirFrame();
};
