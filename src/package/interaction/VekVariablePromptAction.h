#pragma once

#include <string>
#include <vector>

#include "interaction/Vekvariableresult.h"

/// "Prompt for Variables": the user types the values of variables.
class TCustomVekVariablePromptAction : public TVekInteractiveAction {
 public:
  static const ActionClass kClass;
  using TVekInteractiveAction::TVekInteractiveAction;

  std::string Title;
  StringList Variables;
  StringList Prompts;          // by the index of the variable
  StringList SecretVariables;  // names of those whose values show in no log
  bool AskOnlyIfBlank = false;
  bool FailOnCancel = true;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  /// A variable to ask for; its type stays.
  struct Entry {
    std::string name, prompt, text;
    std::string_view type;
    bool secret;
  };

  bool ExpandEntries(std::vector<Entry>& entries) const;
  bool MarkSecrets(StringList& names) const;
  bool AskFor(const std::string& title, std::vector<Entry>& entries) const;
  void StoreAnswers(const std::vector<Entry>& entries) const;
};

class TVekVariablePromptAction final
    : public PublishedAction<TVekVariablePromptAction, TCustomVekVariablePromptAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekVariablePromptAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekVariablePromptAction::Title>("Title"),
      Published<&TCustomVekVariablePromptAction::Variables>("Variables", TextRole::Variable),
      Published<&TCustomVekVariablePromptAction::Prompts>("Prompts"),
      Published<&TCustomVekVariablePromptAction::SecretVariables>("SecretVariables", TextRole::Variable),
      Published<&TCustomVekVariablePromptAction::AskOnlyIfBlank>("AskOnlyIfBlank"),
      Published<&TCustomVekVariablePromptAction::FailOnCancel>("FailOnCancel"),
  };
};
