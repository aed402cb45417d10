#pragma once

#include <ostream>
#include <string>

#include "support/ActionFixture.h"
#include "support/DiskTable.h"

/// A run of an action as a line of a table. Texts may hold %D%, the folder of the test; several are joined by
/// '|', what stands on the disk by blanks.
struct RunCase {
  const char* name;
  std::string set;  // "Property=text"; "Property+=text" adds a line
  std::string before;
  bool result;
  std::string log;
  std::string after;
  std::string results = {};  // "Property=text" of the action after the run
  std::string errors = {};   // what the host reports
};

inline void PrintTo(const RunCase& testCase, std::ostream* stream) { *stream << testCase.name; }

/// Sets properties by their texts, as they stand in a project.
void SetProperties(TCustomVekAction& action, const std::string& set);

/// Performs the run and checks all that the line says.
void ExpectRun(ActionFixture& fixture, TCustomVekAction& action, const RunCase& wanted);
