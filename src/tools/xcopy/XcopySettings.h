#pragma once

#include <optional>
#include <span>
#include <string>

#include "base/DateTime.h"
#include "tools/CopyRules.h"
#include "tools/Selection.h"
#include "tools/Switches.h"

struct XcopySettings : SelectionRules, CopyRules {
  XcopySettings();

  std::string source, target;
  bool showsHelp = false;
  bool isQuiet = false, showsFullNames = false;
  StringList exclusionFiles;
  std::optional<TDateTime> changedSince;  // local
};

/// All switches, in the order of the help.
std::span<const Switch<XcopySettings>> XcopySwitches();
