#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/RunProgram.h"
#include "support/TempFolder.h"

/// Drives vekrun as a user does and takes its jsonl log apart.
struct VekrunResult : ProgramResult {
  std::vector<nlohmann::json> events;

  /// The events of a kind.
  std::vector<nlohmann::json> Of(const std::string& kind) const;

  /// "start /1", "end /1 success", "message /1 text", "status /1 line|line", ... without the times, and
  /// without the programs that were started, whose command lines are the system's.
  StringList Short() const;
};

/// Runs vekrun with --log-format jsonl.
VekrunResult RunJsonl(StringList arguments, const ProgramSetup& setup = {});

/// The text of a project around its actions.
std::string ProjectOf(const std::string& actions, const std::string& variables = "");

/// One action of a project: its type and its properties as XML.
std::string ActionOf(const std::string& type, const std::string& properties, const std::string& inner = "");
