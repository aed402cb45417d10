#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/Text.h"

class BuildContext;
struct Project;

/// A variable from outside the project, and where it comes from, for messages: "-D OUT", "ci.env:3: OUT".
struct VariableDefinition {
  std::string name, text, place;
};

/// The names that a build gives values to by itself.
inline constexpr std::string_view kPredefinedVariables[] = {"PROJECTDIR", "PROJECTFILE", "PROJECTNAME",
                                                            "TEMPDIR", "DOSCMD"};

/// Gives a build its variables: the predefined ones, then the declared ones, each expanded once in order of
/// declaration, with `definitions` taking the place of declared values as they stand or defining further
/// strings; the last one of a name holds. Raises EProjectError for a value that cannot be expanded or does
/// not fit, and for a required one that is blank.
void DefineVariables(BuildContext& context, const Project& project,
                     std::span<const VariableDefinition> definitions);

/// A line for each definition that the project does not declare but nearly does.
StringList NearMisses(const Project& project, std::span<const VariableDefinition> definitions);
