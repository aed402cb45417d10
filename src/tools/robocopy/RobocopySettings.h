#pragma once

#include <optional>
#include <span>
#include <string>

#include "tools/CopyRules.h"
#include "tools/Selection.h"
#include "tools/Switches.h"

/// What is told, and where.
struct LogRules {
  bool listsExtras = false;  // also those that are not selected
  bool isVerbose = false;
  bool showsTimes = false, showsFullPaths = false, showsBytes = false;
  bool hidesSizes = false, hidesClasses = false, hidesFiles = false, hidesFolders = false;
  bool hidesHeader = false, hidesSummary = false;
  std::string logFile;
  bool appends = false;
  bool tees = false;
};

struct RobocopySettings : SelectionRules, CopyRules, LogRules {
  RobocopySettings();

  std::string source, target;
  bool showsHelp = false, quits = false;
  bool hasNoSource = false, hasNoTarget = false;  // of a job that is saved
  StringList jobs;
  std::string savedJob;
  StringList notes;  // on values that mean nothing here

  // Days, or a date as the number YYYYMMDD.
  std::optional<uint64_t> largestAge, smallestAge, largestAccessAge, smallestAccessAge;
};

/// All switches, in the order of the help.
std::span<const Switch<RobocopySettings>> RobocopySwitches();
