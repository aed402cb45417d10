#pragma once

#include <span>
#include <string>

#include "host/engine/BuildContext.h"
#include "host/project/Project.h"
#include "host/project/ProjectVariables.h"

/// A project that runs as a step of another one. Variables, file sets, scripts and what it exports to
/// programs are its own and end with it; it shares the log, the secrets and the wish to stop.
class NestedProject {
 public:
  /// Loads the project and defines its variables. Raises EVekError for one that cannot be used, that runs
  /// already, or that is nested too deep.
  NestedProject(BuildContext& outer, const std::string& file,
                std::span<const VariableDefinition> definitions);

  BuildContext& Context() { return context_; }
  Project& GetProject() { return project_; }

  /// Gives one of its variables to the outer build; raises EVekError when there is none of that name.
  void HandOver(const std::string& name, BuildContext& outer);

 private:
  BuildContext context_;
  Project project_;
};
