#include "interaction/VekVariablePromptAction.h"

#include <algorithm>

#include "coreapi/Vekservices.h"

namespace {

constexpr std::string_view kHidden = "********";

constexpr std::string_view kAliases[] = {
    "[Prompt for Variables]",
    "Title=Title",
    "Variables=Variables",
    "Prompts=Prompts",
    "SecretVariables=Secret Variables",
    "AskOnlyIfBlank=Ask only if Blank",
    "FailOnCancel=Fail on Cancel",
};

constexpr std::string_view kHelp[] = {
    "Title=The heading above the prompts.  Any variables used will be expanded.",
    "Variables=The names of the variables to ask for, one a line",
    "Prompts=The texts to ask with, in the order of the variables; a variable without one is asked for by "
    "name",
    "SecretVariables=The names of the variables that are typed unseen, and whose values no log shows",
    "AskOnlyIfBlank=Leave out variables that have a value; a build that gives them all asks nothing",
    "FailOnCancel=Fail when the user cancels; no variable is changed either way",
};

}  // namespace

const ActionClass TCustomVekVariablePromptAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekVariablePromptAction",
    .actionName = "Prompt for Variables",
    .helpTopicID = 2470,
    .quickHelpFilename = "Plugins\\VariablePrompt.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomVekVariablePromptAction::Validate(IVekActionValidationError& errors) {
  const bool named = std::ranges::any_of(Variables, [](const auto& name) { return !Trim(name).empty(); });
  if (!named) errors.AddError("Variables", "No variables have been set");
  return named;
}

bool TCustomVekVariablePromptAction::Execute() {
  std::vector<Entry> entries;
  if (!ExpandEntries(entries)) return false;
  if (entries.empty()) return true;
  std::string title;
  if (!IsInteractive() || !TryExpandExpression("Title", Title, title, false)) return false;
  bool answered = false;
  Synchronize([&] { answered = AskFor(title, entries); });
  if (!answered) return !FailOnCancel && !StopSignalled();
  StoreAnswers(entries);
  return true;
}

/// The variables that are to be asked for.
bool TCustomVekVariablePromptAction::ExpandEntries(std::vector<Entry>& entries) const {
  StringList secrets;
  if (!MarkSecrets(secrets)) return false;
  for (size_t i = 0; i < Variables.size(); ++i) {
    if (Trim(Variables[i]).empty()) continue;
    Entry entry;
    if (!ExpandVariable(Variables[i], entry.name)) return false;
    if (i < Prompts.size() && !TryExpandExpression("Prompts", Prompts[i], entry.prompt, false)) return false;
    if (Trim(entry.prompt).empty()) entry.prompt = entry.name;
    const Variant value =
        IsVariableDefined(entry.name) ? GetVariableValue(entry.name) : Variant(std::string());
    entry.text = VariantToText(value);
    entry.type = VariantTypeName(value);
    entry.secret =
        std::ranges::any_of(secrets, [&entry](const auto& name) { return SameText(name, entry.name); });
    if (!AskOnlyIfBlank || Trim(entry.text).empty()) entries.push_back(std::move(entry));
  }
  return true;
}

bool TCustomVekVariablePromptAction::MarkSecrets(StringList& names) const {
  for (const std::string& line : SecretVariables) {
    if (Trim(line).empty()) continue;
    if (!ExpandVariable(line, names.emplace_back())) return false;
    MarkVariableSecret(names.back());
  }
  return true;
}

/// [user-interface thread, through Synchronize]
bool TCustomVekVariablePromptAction::AskFor(const std::string& title, std::vector<Entry>& entries) const {
  for (Entry& entry : entries) {
    const TTextPrompt prompt{
        .title = &entry == &entries.front() ? std::string_view(title) : std::string_view(),
        .text = entry.prompt,
        .secret = entry.secret,
        .complaint = [&entry](const std::string& answer) {
          const bool fits = VariantFromText(entry.type, answer).has_value();
          return fits ? "" : "That is no value of type " + std::string(entry.type) + ".";
        }};
    if (!VekDialogServices().PromptForText(prompt, entry.text)) return false;
  }
  return true;
}

void TCustomVekVariablePromptAction::StoreAnswers(const std::vector<Entry>& entries) const {
  for (const Entry& entry : entries) {
    const Variant value = *VariantFromText(entry.type, entry.text);
    Store(entry.name, value);
    SendMessage(entry.name + " = " + (entry.secret ? std::string(kHidden) : VariantToText(value)));
  }
}
