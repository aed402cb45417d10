#pragma once

#include "forms/Vekpluginapi.h"
#include "interaction/VekQuestionAction.h"

class TQuestionFrame final : public TActionFrame<TVekQuestionAction> {
 public:
  static constexpr std::string_view kClassName = "TQuestionFrame";
  TQuestionFrame();
};
