#pragma once

#include <string>

#include "coreapi/Vekactionapi.h"

/// "Log Variable Values": writes the values of variables to the build log.
class TCustomVekLogVariablesAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  StringList VariablesToLog;
  bool FailIfNotDefined = true;

  /// The same list as one text, each name with a line break behind it.
  std::string VariableStorageString() const;
  void SetVariableStorageString(std::string_view value) { VariablesToLog = SplitLines(value); }

 protected:
  bool Execute() override;

 private:
  bool LogVariable(const std::string& name) const;
};

class TVekLogVariablesAction final
    : public PublishedAction<TVekLogVariablesAction, TCustomVekLogVariablesAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekLogVariablesAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekLogVariablesAction::VariablesToLog>("VariablesToLog", TextRole::Variable)
          .Means("The names of the variables, one a line"),
      Published<&TCustomVekLogVariablesAction::VariableStorageString,
                &TCustomVekLogVariablesAction::SetVariableStorageString>("VariableStorageString")
          .Means("The same names as one text"),
      Published<&TCustomVekLogVariablesAction::FailIfNotDefined>("FailIfNotDefined")
          .Means("Fail when one of them is not defined"),
  };
};
