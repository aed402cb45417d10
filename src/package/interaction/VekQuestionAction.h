#pragma once

#include <cstdint>
#include <string>

#include "interaction/Vekvariableresult.h"

enum class TAnswerAction { FailOnCancel, FailOnOK, ResultIntoVariable };
template <>
inline constexpr auto kEnumNames<TAnswerAction> = Names("TAnswerAction", "FailOnCancel", "FailOnOK",
                                                        "ResultIntoVariable");

/// "Ask Question": a question with two buttons, whose answer decides the step or goes into a variable.
class TCustomVekQuestionAction : public TVekInteractiveAction {
 public:
  static const ActionClass kClass;
  using TVekInteractiveAction::TVekInteractiveAction;

  std::string PromptText;
  bool UseYesAndNo = false;
  TAnswerAction AnswerAction = TAnswerAction::FailOnCancel;
  std::string VekVariable;
  bool DefaultIsCancel = false;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  void DoMessageDlg();

  std::string prompt_;
  uint32_t style_ = 0;
  int32_t answer_ = 0;
};

class TVekQuestionAction final : public PublishedAction<TVekQuestionAction, TCustomVekQuestionAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekQuestionAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekQuestionAction::PromptText>("PromptText"),
      Published<&TCustomVekQuestionAction::UseYesAndNo>("UseYesAndNo"),
      Published<&TCustomVekQuestionAction::AnswerAction>("AnswerAction"),
      Published<&TCustomVekQuestionAction::VekVariable>("VekVariable", TextRole::Variable),
      Published<&TCustomVekQuestionAction::DefaultIsCancel>("DefaultIsCancel"),
  };
};
