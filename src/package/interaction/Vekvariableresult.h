#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

/// Base of actions that put what they learn into variables.
class TVekVariableResultAction : public TVekAction {
 public:
  using TVekAction::TVekAction;

 protected:
  bool ExpandVariable(std::string_view property, std::string& name) const;

  /// A blank property gives an empty name, under which nothing is stored.
  bool ExpandOptionalVariable(std::string_view property, std::string& name) const;

  /// Defines the variable where it is new.
  void Store(std::string_view variable, Variant value) const;
};

/// Base of those that ask the user.
class TVekInteractiveAction : public TVekVariableResultAction {
 public:
  using TVekVariableResultAction::TVekVariableResultAction;
  bool CanRunUnderAsync() const override { return false; }

 protected:
  /// Whether there is a user to ask; says so when there is none.
  bool IsInteractive() const;
};
