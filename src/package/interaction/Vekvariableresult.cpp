#include "interaction/Vekvariableresult.h"

#include <utility>

bool TVekVariableResultAction::ExpandVariable(std::string_view property, std::string& name) const {
  return TryExpandExpression("Variable", property, name, true);
}

bool TVekVariableResultAction::ExpandOptionalVariable(std::string_view property, std::string& name) const {
  name.clear();
  return Trim(property).empty() || ExpandVariable(property, name);
}

void TVekVariableResultAction::Store(std::string_view variable, Variant value) const {
  if (variable.empty()) return;
  if (!IsVariableDefined(variable)) AddNewVariable(variable, "");
  SetVariable(variable, std::move(value));
}

bool TVekInteractiveAction::IsInteractive() const {
  if (!GetIsUnattended()) return true;
  SendMessage("This action must be run in interactive mode");
  return false;
}
