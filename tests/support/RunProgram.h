#pragma once

#include <string>

#include "base/Text.h"

/// A program that ran to its end.
struct ProgramResult {
  int exitCode = -1;  // 128 + n when signal n ended it
  std::string out, err;
};

struct ProgramSetup {
  std::string input = {};        // what it reads; end of input follows
  std::string folder = {};       // its current folder; empty: the test's
  StringList environment = {};   // NAME=VALUE, on top of the test's
  size_t closeOutputAfter = 0;   // bytes after which the reader of its output goes away; 0: never
  std::string interruptAt = {};  // Ctrl-C once the output holds this; empty: never
};

/// Runs a program with the arguments as given, no shell between.
ProgramResult RunProgram(const std::string& file, const StringList& arguments,
                         const ProgramSetup& setup = {});

/// The entry of an environment whose host data (option store, ...) lies in `folder`/vekrun.
std::string DataFolderIn(const std::string& folder);

/// Runs the vekrun that was built beside this test.
ProgramResult RunVekrun(const StringList& arguments, const ProgramSetup& setup = {});
