#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "coreapi/Vekactionapi.h"

/// A project in memory. Line numbers are those of the file it was read from, 0 when there is none.
struct VariableDeclaration {
  std::string name;
  std::string type;  // "String", "Integer", "Boolean", "Float" or "DateTime"
  std::string text;  // as written; expanded when a build starts
  int line = 0;
  bool secret = false;    // its values show in no log
  bool required = false;  // a build does not start while it is blank
  bool exported = false;  // programs find it in their environment
};

struct FileSetDeclaration {
  std::string name;
  std::string baseDirectory;
  StringList includes, excludes;
  int line = 0;
};

struct ActionNode {
  std::string typeId;
  std::unique_ptr<TCustomVekAction> action;
  std::vector<ActionNode> children;
  int line = 0;
  bool chosen = true;  // else it is skipped, with what is below it
};

struct Project {
  std::string fileName;      // full path; empty when there is none
  bool followLinks = false;  // iterators and file sets go into folders through links
  std::vector<VariableDeclaration> variables;
  std::vector<FileSetDeclaration> fileSets;
  std::vector<ActionNode> actions;
};

/// The first action of that name in the order of execution, without regard to case, or null.
TCustomVekAction* FindActionByName(const std::vector<ActionNode>& actions, std::string_view name);

/// A project that cannot be used. The message is one line that names file, line, action and property and the
/// value at fault.
class EProjectError : public EVekError {
 public:
  using EVekError::EVekError;
};
