#pragma once

#include <span>
#include <string>
#include <utility>

class BuildContext;
struct Project;

using VariableDefinition = std::pair<std::string, std::string>;  // name, text

/// Gives a build its variables: the predefined ones, then the declared ones, each expanded once in order of
/// declaration, with `definitions` of the command line taking the place of declared values as they stand or
/// defining further strings. Raises EProjectError for a value that cannot be expanded or does not fit.
void DefineVariables(BuildContext& context, const Project& project,
                     std::span<const VariableDefinition> definitions);
