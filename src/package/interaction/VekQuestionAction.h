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
      Published<&TCustomVekQuestionAction::PromptText>("PromptText")
          .Means("The question.  Any variables used will be expanded."),
      Published<&TCustomVekQuestionAction::UseYesAndNo>("UseYesAndNo")
          .Means("Ask with Yes and No instead of OK and Cancel"),
      Published<&TCustomVekQuestionAction::AnswerAction>("AnswerAction")
          .Means("Fail on Cancel or No, fail on OK or Yes, or store the answer"),
      Published<&TCustomVekQuestionAction::VekVariable>("VekVariable", TextRole::Variable)
          .Means("The variable that receives the answer, as a boolean: True for OK or Yes"),
      Published<&TCustomVekQuestionAction::DefaultIsCancel>("DefaultIsCancel")
          .Means("Cancel or No is the default answer"),
  };
};
