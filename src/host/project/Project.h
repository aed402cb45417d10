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

/// Where a property or a script of an action stands.
struct ItemLine {
  std::string name;
  int line = 0;
};

struct ActionNode {
  std::string typeId;
  std::unique_ptr<TCustomVekAction> action;
  std::vector<ActionNode> children;
  int line = 0;
  std::vector<ItemLine> lines = {};  // of what stands in the file
  bool chosen = true;                // else it is skipped, with what is below it

  /// That of the property or script; the action's where there is none.
  int LineOf(std::string_view item) const;
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

/// What of a project a fault is in; empty for the file as a whole.
struct FaultPlace {
  std::string path = {}, type = {};  // of an action
  std::string item = {};             // "property FileSpec", "variable OUT", "file set \"Sources\""

  FaultPlace Of(std::string part) const { return {path, type, std::move(part)}; }

  /// "action /1/2 HDELETE_FILE: property FileSpec"
  std::string Text() const;
};

/// A fault of a project's file.
class EProjectFault : public EProjectError {
 public:
  EProjectFault(const std::string& file, int line, FaultPlace place, std::string reason);

  const std::string& File() const { return file_; }
  int Line() const { return line_; }
  const FaultPlace& Place() const { return place_; }
  const std::string& Reason() const { return reason_; }

 private:
  std::string file_;
  int line_;
  FaultPlace place_;
  std::string reason_;
};
