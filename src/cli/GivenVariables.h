#pragma once

#include <vector>

#include "host/project/ProjectVariables.h"

struct Arguments;
struct Project;
class Session;

/// The variables that the command line gives; -D holds over what a file says. Raises EVekError for a file
/// that cannot be read.
std::vector<VariableDefinition> GivenVariables(const Session& session, const Arguments& arguments);

/// Says on standard error which of them the project nearly declares.
void PrintNearMisses(const Project& project, const std::vector<VariableDefinition>& definitions);
