#pragma once

#include <string>
#include <vector>

#include "host/project/Project.h"

/// A setting that an action reports as missing or inconsistent.
struct ValidationProblem {
  std::string path;   // of the action
  std::string type;   // its type id
  std::string title;  // the property's display title
  std::string message;
};

/// Calls Validate of every enabled action; a disabled action hides what is below it.
std::vector<ValidationProblem> ValidateActions(const std::vector<ActionNode>& actions);
