#pragma once

#include <string_view>
#include <vector>

#include "host/project/ProjectVariables.h"

/// Reads a file of variables: a line NAME=VALUE each, behind "export" if need be; a line that begins with '#'
/// is a comment, as is what follows a blank and '#'. A value in single quotes stands as it is, in double
/// quotes a backslash stands before '"', '\', '$' and '`'. Raises EProjectError, which names file and line,
/// for any other line. `fileName` is how messages name the file.
std::vector<VariableDefinition> ReadVariablesFile(std::string_view text, std::string_view fileName);
