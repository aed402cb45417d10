#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "host/project/ProjectVariables.h"

struct ActionNode;
struct Project;

/// The names that variables can have in a build of a project: predefined, given, declared, or set by an
/// action or script.
class KnownVariables {
 public:
  KnownVariables(const Project& project, std::span<const VariableDefinition> definitions);

  /// Whether a variable of that name may exist. Where names are made up while the build runs, any may.
  bool MayExist(std::string_view name) const;

  /// "; did you mean ...?" or nothing.
  std::string Nearest(std::string_view name) const;

 private:
  void Add(std::string_view name);
  void AddSetBy(const ActionNode& node);
  void AddSetIn(std::string_view script);

  std::set<std::string, LessNoCase> names_;
  StringList beginnings_;  // of names whose rest is made up while the build runs
  bool anyName_ = false;
};
