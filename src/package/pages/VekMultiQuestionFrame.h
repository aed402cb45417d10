#pragma once

#include "forms/Vekpluginapi.h"
#include "interaction/VekMultiQuestionAction.h"

class TFrameMultiQuestion final : public TActionFrame<TVekMultiQuestionAction> {
 public:
  static constexpr std::string_view kClassName = "TFrameMultiQuestion";
  TFrameMultiQuestion();
};
