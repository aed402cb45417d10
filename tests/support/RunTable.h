#pragma once

#include <ostream>
#include <span>
#include <string>

#include "gtest/gtest.h"

#include "support/ActionFixture.h"
#include "support/DiskTable.h"

/// A run of an action as a line of a table. Texts may hold %D%, the folder of the test; several are joined by
/// '|', what stands on the disk by blanks, and a '~' in it is a blank. A file "^name=text" is held by another
/// program.
struct RunCase {
  const char* name;
  std::string set;  // "Property=text"; "Property+=text" adds a line, "$NAME=text" or
                    // "$NAME:Type=text" sets a variable, and "@Event=text" a script
  std::string before;
  bool result;
  std::string log;
  std::string after;
  std::string results = {};  // "Property=text" after the run, "$NAME=Type text" of a variable
  std::string errors = {};   // what the host reports
  std::string fails = {};    // "operation name code": calls of the platform that fail; any name for "*"
};

/// What is said of a text with %X%, which no run defines.
inline const std::string kUnknownX = "unknown variable \"X\" (%% stands for one %)";

inline void PrintTo(const RunCase& testCase, std::ostream* stream) { *stream << testCase.name; }

/// Sets properties by their texts, as they stand in a project.
void SetProperties(TCustomVekAction& action, const std::string& set);

/// Performs the run and checks all that the line says.
void ExpectRun(ActionFixture& fixture, TCustomVekAction& action, const RunCase& wanted);

/// Performs runs, each in a folder and a build of its own.
template <class Action, class Fixture = ActionFixture>
void ExpectRuns(std::span<const RunCase> runs) {
  for (const RunCase& run : runs) {
    SCOPED_TRACE(run.name);
    Fixture fixture;
    ExpectRun(fixture, *fixture.template Make<Action>(), run);
  }
}
