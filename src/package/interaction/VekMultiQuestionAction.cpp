#include "interaction/VekMultiQuestionAction.h"

#include <algorithm>

#include "coreapi/Vekservices.h"

namespace {

constexpr size_t kLeastAnswers = 2;
constexpr std::string_view kTooFewAnswers = "At least two answers are needed";

constexpr std::string_view kAliases[] = {
    "[Multi Question]",
    "PromptText=Prompt Text",
    "Answers=Answers",
    "DefaultAnswer=Default Answer",
    "VekVariable=Variable",
    "ResultIsNumber=Result is Number",
    "FailOnCancel=Fail on Cancel",
};

constexpr std::string_view kHelp[] = {
    "PromptText=The question.  Any variables used will be expanded.",
    "Answers=The answers to choose from, one a line; those that are blank once expanded are left out",
    "DefaultAnswer=The number of the answer that is offered, counted from 1; 0 for none",
    "VekVariable=The variable that receives the answer",
    "ResultIsNumber=Store the number of the answer instead of its text",
    "FailOnCancel=Fail when the user cancels; otherwise the empty text or 0 is stored",
};

bool IsBlank(std::string_view text) { return Trim(text).empty(); }

}  // namespace

const ActionClass TCustomVekMultiQuestionAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekMultiQuestionAction",
    .actionName = "Multi Question",
    .helpTopicID = 2480,
    .quickHelpFilename = "Plugins\\MultiQuestion.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomVekMultiQuestionAction::Validate(IVekActionValidationError& errors) {
  const auto answers = Answers.size() - static_cast<size_t>(std::ranges::count_if(Answers, IsBlank));
  if (PromptText.empty()) errors.AddError("Prompt Text", "The prompt text has not been set");
  if (answers < kLeastAnswers) errors.AddError("Answers", kTooFewAnswers);
  if (VekVariable.empty()) errors.AddError("Variable", "The variable name has not been set");
  return !PromptText.empty() && answers >= kLeastAnswers && !VekVariable.empty();
}

bool TCustomVekMultiQuestionAction::Execute() {
  if (!IsInteractive()) return false;
  std::string prompt, variable;
  StringList answers;
  if (!TryExpandExpression("Prompt Text", PromptText, prompt, true) || !ExpandAnswers(answers) ||
      !ExpandVariable(VekVariable, variable)) {
    return false;
  }
  int32_t number = DefaultAnswer;
  bool answered = false;
  Synchronize([&] { answered = VekDialogServices().ChooseFromList(prompt, answers, number); });
  if (!answered && (FailOnCancel || StopSignalled())) return false;
  if (!answered) number = 0;
  const std::string text = answered ? answers[static_cast<size_t>(number) - 1] : "";
  Store(variable, ResultIsNumber ? Variant(int64_t{number}) : Variant(text));
  return true;
}

bool TCustomVekMultiQuestionAction::ExpandAnswers(StringList& answers) const {
  for (const std::string& line : Answers) {
    std::string answer;
    if (!TryExpandExpression("Answers", line, answer, false)) return false;
    if (!IsBlank(answer)) answers.push_back(std::move(answer));
  }
  if (answers.size() >= kLeastAnswers) return true;
  SendMessage(kTooFewAnswers);
  return false;
}
