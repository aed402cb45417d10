#include "interaction/VekQuestionAction.h"

#include "coreapi/Vekservices.h"

const ActionClass TCustomVekQuestionAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekQuestionAction",
    .actionName = "Ask Question",
    .helpTopicID = 2450,
    .quickHelpFilename = "Plugins\\QuestionAction.html",
};

bool TCustomVekQuestionAction::Validate(IVekActionValidationError& errors) {
  const bool lacksVariable = AnswerAction == TAnswerAction::ResultIntoVariable && VekVariable.empty();
  if (PromptText.empty()) errors.AddError("Prompt Text", "The prompt text has not been set");
  if (lacksVariable) errors.AddError("Variable", "The variable name has not been set");
  return !PromptText.empty() && !lacksVariable;
}

bool TCustomVekQuestionAction::Execute() {
  if (!IsInteractive()) return false;
  if (!TryExpandExpression("Question", PromptText, prompt_, true)) return false;
  std::string variable;
  const bool wantsVariable = AnswerAction == TAnswerAction::ResultIntoVariable;
  if (wantsVariable && !ExpandVariable(VekVariable, variable)) return false;

  style_ = UseYesAndNo ? MessageBoxStyle::YesNo : MessageBoxStyle::OkCancel;
  if (DefaultIsCancel) style_ |= MessageBoxStyle::SecondIsDefault;
  Synchronize([this] { DoMessageDlg(); });

  const bool agreed = answer_ == (UseYesAndNo ? MessageBoxAnswer::Yes : MessageBoxAnswer::Ok);
  if (!wantsVariable) return agreed == (AnswerAction == TAnswerAction::FailOnCancel);
  Store(variable, agreed);
  return true;
}

/// [user-interface thread, through Synchronize]
void TCustomVekQuestionAction::DoMessageDlg() {
  answer_ = VekDialogServices().MessageDialog(prompt_, "Confirm?", style_ | MessageBoxStyle::QuestionIcon);
}
