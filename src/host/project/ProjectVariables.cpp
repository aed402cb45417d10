#include "host/project/ProjectVariables.h"

#include <algorithm>

#include "base/WindowsPath.h"
#include "host/engine/BuildContext.h"
#include "host/project/Project.h"
#include "host/project/Quoted.h"
#include "platform/Environment.h"
#include "platform/Platform.h"

namespace {

/// The file name without its extension.
std::string_view BaseName(std::string_view path) {
  const std::string_view name = NamePart(path);
  const size_t dot = name.rfind('.');
  return dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot);
}

void DefinePredefined(Variables& variables, Environment& environment, const Project& project) {
  if (!project.fileName.empty()) {
    variables.Set("PROJECTDIR", std::string(ParentFolder(project.fileName)));
    variables.Set("PROJECTFILE", project.fileName);
    variables.Set("PROJECTNAME", std::string(BaseName(project.fileName)));
  }
  variables.Set("TEMPDIR", environment.TempFolder());
  variables.Set("DOSCMD", environment.CommandInterpreter());
}

const VariableDefinition* LastDefinition(std::span<const VariableDefinition> definitions,
                                         std::string_view name) {
  const VariableDefinition* last = nullptr;
  for (const VariableDefinition& definition : definitions) {
    if (SameText(definition.name, name)) last = &definition;
  }
  return last;
}

Variant ValueOf(std::string_view type, const std::string& text, const std::string& place) {
  if (auto value = VariantFromText(type, text)) return *std::move(value);
  throw EProjectError(place + ": " + Quoted(text) + " is no value of type " + std::string(type));
}

std::string DeclaredText(BuildContext& context, const VariableDeclaration& declared,
                         const std::string& place) {
  try {
    return context.ExpandExpression(declared.text);
  } catch (const EVekExpressionError& error) {
    throw EProjectError(place + ": " + Quoted(declared.text) + ": " + OneLine(error.what()));
  }
}

/// The value that a declared variable starts with: the one given, else the declared one.
Variant StartValue(BuildContext& context, const Project& project, const VariableDeclaration& declared,
                   const VariableDefinition* given) {
  const std::string place =
      project.fileName + ':' + std::to_string(declared.line) + ": variable " + declared.name;
  const std::string text = given ? given->text : DeclaredText(context, declared, place);
  if (declared.secret) context.GetVariables().GetSecrets().AddValue(text);  // before a message shows it
  if (declared.required && Trim(text).empty()) {
    throw EProjectError(place + ": a value is required (-D " + declared.name + "=VALUE)");
  }
  return ValueOf(declared.type, text, given ? given->place : place);
}

}  // namespace

void DefineVariables(BuildContext& context, const Project& project,
                     std::span<const VariableDefinition> definitions) {
  Variables& variables = context.GetVariables();
  for (const VariableDeclaration& declared : project.variables) {
    if (declared.secret) context.MarkVariableSecret(declared.name);
    if (declared.exported) context.ExportVariable(declared.name);
  }
  DefinePredefined(variables, *context.GetPlatform().environment, project);
  // First, so that a declared value can refer to what the command line defines.
  for (const VariableDefinition& definition : definitions) variables.Set(definition.name, definition.text);
  for (const VariableDeclaration& declared : project.variables) {
    variables.Set(declared.name,
                  StartValue(context, project, declared, LastDefinition(definitions, declared.name)));
  }
}

StringList NearMisses(const Project& project, std::span<const VariableDefinition> definitions) {
  // Of two short names that differ in a letter none is a slip of the finger.
  constexpr size_t kShortest = 3;
  std::vector<std::string_view> declared;
  for (const VariableDeclaration& variable : project.variables) declared.push_back(variable.name);
  StringList lines;
  for (const auto& [name, text, place] : definitions) {
    const auto isIt = [&name = name](std::string_view known) { return SameText(known, name); };
    if (name.size() < kShortest || std::ranges::any_of(declared, isIt)) continue;
    const std::string suggestion = Suggestion(name, declared);
    if (!suggestion.empty()) lines.push_back(place + ": the project declares no such variable" + suggestion);
  }
  return lines;
}
