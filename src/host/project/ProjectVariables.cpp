#include "host/project/ProjectVariables.h"

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
    if (SameText(definition.first, name)) last = &definition;
  }
  return last;
}

Variant ValueOf(std::string_view type, const std::string& text, const std::string& place) {
  if (auto value = VariantFromText(type, text)) return *std::move(value);
  throw EProjectError(place + ": " + Quoted(text) + " is no value of type " + std::string(type));
}

Variant DeclaredValue(BuildContext& context, const Project& project, const VariableDeclaration& declared) {
  const std::string place =
      project.fileName + ':' + std::to_string(declared.line) + ": variable " + declared.name;
  try {
    const std::string text = context.ExpandExpression(declared.text);
    if (declared.secret) context.GetVariables().GetSecrets().AddValue(text);  // before a message shows it
    return ValueOf(declared.type, text, place);
  } catch (const EVekExpressionError& error) {
    throw EProjectError(place + ": " + Quoted(declared.text) + ": " + OneLine(error.what()));
  }
}

}  // namespace

void DefineVariables(BuildContext& context, const Project& project,
                     std::span<const VariableDefinition> definitions) {
  Variables& variables = context.GetVariables();
  for (const VariableDeclaration& declared : project.variables) {
    if (declared.secret) context.MarkVariableSecret(declared.name);
  }
  DefinePredefined(variables, *context.GetPlatform().environment, project);
  // First, so that a declared value can refer to what the command line defines.
  for (const auto& [name, text] : definitions) variables.Set(name, text);
  for (const VariableDeclaration& declared : project.variables) {
    const VariableDefinition* given = LastDefinition(definitions, declared.name);
    variables.Set(declared.name, given ? ValueOf(declared.type, given->second, "-D " + given->first)
                                       : DeclaredValue(context, project, declared));
  }
}
