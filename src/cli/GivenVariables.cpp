#include "cli/GivenVariables.h"

#include <iostream>

#include "cli/Session.h"
#include "host/project/ProjectFile.h"
#include "host/project/VariablesFile.h"

std::vector<VariableDefinition> GivenVariables(const Session& session, const Arguments& arguments) {
  std::vector<VariableDefinition> definitions;
  for (const std::string& file : arguments.variableFiles) {
    const auto read = ReadVariablesFile(ReadTextOf(session.GetPlatform(), file), file);
    definitions.insert(definitions.end(), read.begin(), read.end());
  }
  definitions.insert(definitions.end(), arguments.variables.begin(), arguments.variables.end());
  return definitions;
}

void PrintNearMisses(const Project& project, const std::vector<VariableDefinition>& definitions) {
  for (const std::string& line : NearMisses(project, definitions)) std::cerr << "vekrun: " << line << '\n';
}
