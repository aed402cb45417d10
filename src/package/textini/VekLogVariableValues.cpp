#include "textini/VekLogVariableValues.h"

namespace {

constexpr std::string_view kHidden[] = {"VariableStorageString"};

std::string TextOf(const Variant& value) {
  const bool hasText = !std::holds_alternative<IVekScriptObject*>(value);
  return hasText ? VariantToText(value) : "(Cannot be represented as string)";
}

}  // namespace

const ActionClass TCustomVekLogVariablesAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekLogVariablesAction",
    .actionName = "Log Variable Values",
    .helpTopicID = 6170,
    .quickHelpFilename = "Plugins\\LogVariableValues.html",
    .hiddenProperties = kHidden,
};

std::string TCustomVekLogVariablesAction::VariableStorageString() const {
  std::string text;
  for (const std::string& name : VariablesToLog) text.append(name).append("\r\n");
  return text;
}

bool TCustomVekLogVariablesAction::Execute() {
  SendMessage("Current variable values : ");
  for (const std::string& entry : VariablesToLog) {
    std::string name;
    if (!TryExpandExpression("Variable to Log", entry, name, false)) return false;
    if (!name.empty() && !LogVariable(name)) return false;
  }
  return true;
}

bool TCustomVekLogVariablesAction::LogVariable(const std::string& name) const {
  if (!IsVariableDefined(name)) {
    SendMessage("Variable " + name + " not defined.");
    return !FailIfNotDefined;
  }
  SendMessage(name + " = " + TextOf(GetVariableValue(name)));
  return true;
}
