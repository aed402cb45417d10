#pragma once

#include <span>
#include <string_view>

#include "coreapi/Vekcommandline.h"

/// A switch that stands in a command line when its property is set.
template <class Action>
struct Switch {
  bool Action::*property;
  std::string_view text;
};

inline void AddSwitch(ICommandLineBuilder& builder, std::string_view text) {
  builder.AddArgument(text, "", ArgumentQuoting::WhenNeeded);
}

/// Those of the table that are set, in its order.
template <class Action, size_t N>
void AddSwitches(ICommandLineBuilder& builder, const Action& action, const Switch<Action> (&switches)[N]) {
  for (const Switch<Action>& row : switches) {
    if (action.*row.property) AddSwitch(builder, row.text);
  }
}
