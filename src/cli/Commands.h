#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/Arguments.h"

inline constexpr auto kProgramTitle = "vekrun executes build projects.";

/// The texts as they come, before they are taken apart.
struct RawArguments {
  std::vector<std::string> variables, drives, options, reports;
  std::optional<std::string> logFormat, logFile;
};

/// Declares the commands with their options, help and examples.
void DeclareCommands(CLI::App& app, Arguments& arguments, RawArguments& raw);
