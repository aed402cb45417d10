#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/project/ProjectVariables.h"

class BuildContext;
class EProjectFault;
struct Project;

/// Something in a project that will fail, or cannot be meant.
struct Problem {
  std::string file;
  int line = 0;       // 0: unknown
  std::string path;   // of the action; empty for what stands outside of actions
  std::string type;   // its type id
  std::string title;  // the property's display title, or the variable or file set
  std::string message;
};

/// What a fault of loading is as a problem.
Problem ProblemOf(const EProjectFault& fault);

/// Looks into a project without executing anything of it: what each enabled action's Validate reports,
/// scripts and expressions that do not compile, and names of variables and file sets that nothing gives. A
/// disabled action hides what is below it. `definitions` are those that a build would be given. `fileName` is
/// how problems name the file.
std::vector<Problem> CheckProject(const Project& project, const std::string& fileName, BuildContext& context,
                                  std::span<const VariableDefinition> definitions);
