#pragma once

#include <cstdint>
#include <string>

#include "interaction/Vekvariableresult.h"

/// "Multi Question": one of several answers goes into a variable.
class TCustomVekMultiQuestionAction : public TVekInteractiveAction {
 public:
  static const ActionClass kClass;
  using TVekInteractiveAction::TVekInteractiveAction;

  std::string PromptText;
  StringList Answers;
  int32_t DefaultAnswer = 0;  // among those that are shown, from 1; 0: none
  std::string VekVariable;
  bool ResultIsNumber = false;
  bool FailOnCancel = true;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  bool ExpandAnswers(StringList& answers) const;
};

class TVekMultiQuestionAction final
    : public PublishedAction<TVekMultiQuestionAction, TCustomVekMultiQuestionAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekMultiQuestionAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekMultiQuestionAction::PromptText>("PromptText"),
      Published<&TCustomVekMultiQuestionAction::Answers>("Answers"),
      Published<&TCustomVekMultiQuestionAction::DefaultAnswer>("DefaultAnswer"),
      Published<&TCustomVekMultiQuestionAction::VekVariable>("VekVariable", TextRole::Variable),
      Published<&TCustomVekMultiQuestionAction::ResultIsNumber>("ResultIsNumber"),
      Published<&TCustomVekMultiQuestionAction::FailOnCancel>("FailOnCancel"),
  };
};
