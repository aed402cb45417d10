#include "host/validation/KnownVariables.h"

#include <algorithm>

#include "host/expressions/VariableName.h"
#include "host/project/Project.h"
#include "host/project/Quoted.h"
#include "host/validation/Texts.h"

KnownVariables::KnownVariables(const Project& project, std::span<const VariableDefinition> definitions) {
  for (std::string_view name : kPredefinedVariables) Add(name);
  for (const VariableDefinition& definition : definitions) Add(definition.name);
  for (const VariableDeclaration& declared : project.variables) {
    Add(declared.name);
    AddSetIn(declared.text);
  }
  for (const ActionNode& node : project.actions) AddSetBy(node);
}

std::string KnownVariables::Nearest(std::string_view name) const {
  return Suggestion(name, std::vector<std::string_view>(names_.begin(), names_.end()));
}

bool KnownVariables::MayExist(std::string_view name) const {
  const auto beginsIt = [name](const std::string& beginning) {
    return SameText(name.substr(0, beginning.size()), beginning);
  };
  return anyName_ || names_.contains(name) || std::ranges::any_of(beginnings_, beginsIt);
}

/// A name that holds references is known only as the build runs, but for what stands before them.
void KnownVariables::Add(std::string_view name) {
  const std::string_view trimmed = Trim(name);
  if (IsVariableName(trimmed)) {
    names_.emplace(trimmed);
  } else if (const size_t special = trimmed.find_first_of("%$"); special != std::string_view::npos) {
    const std::string_view beginning = trimmed.substr(0, special);
    if (IsVariableName(beginning)) {
      beginnings_.emplace_back(beginning);
    } else {
      anyName_ = true;
    }
  }
}

void KnownVariables::AddSetBy(const ActionNode& node) {
  ForEachText(*node.action, [this](const PropertyRow& row, const std::string& text) {
    if (row.role == TextRole::Variable) Add(text);
    AddSetIn(text);
  });
  for (const std::string& event : node.action->ScriptEvents()) {
    AddSetIn(node.action->GetScriptByName(event)->Text());
  }
  for (const ActionNode& child : node.children) AddSetBy(child);
}

/// Takes the names out of calls Vek.SetVariable("NAME", ...).
void KnownVariables::AddSetIn(std::string_view script) {
  constexpr std::string_view kCall = "SetVariable";
  for (size_t call = 0; (call = script.find(kCall, call)) != std::string_view::npos;) {
    call += kCall.size();
    const size_t open = script.find_first_not_of(" \t\r\n", call);
    if (script.substr(std::min(open, script.size()), 1) != "(") {
      anyName_ = true;  // the function is handed on
      continue;
    }
    const std::string_view argument = Trim(script.substr(open + 1));
    const size_t close = argument.size() < 2 ? std::string_view::npos : argument.find(argument[0], 1);
    const bool isLiteral = !argument.empty() && (argument[0] == '"' || argument[0] == '\'') &&
                           close != std::string_view::npos &&
                           Trim(argument.substr(close + 1)).starts_with(',');
    if (isLiteral) {
      Add(argument.substr(1, close - 1));
    } else {
      anyName_ = true;
    }
  }
}
