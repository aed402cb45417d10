#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "host/project/ProjectVariables.h"

enum class Command { Run, Exec, Validate, List, Actions, Describe, Schema, Completion, Manual };
enum class LogFormat { Text, Jsonl, Junit };

namespace CLI {
class App;
}

/// What the command line asks for.
struct Arguments {
  Command command = Command::Run;
  std::string subject;                        // the project's file, or a type id
  std::vector<std::string> assignments;       // of exec: PROP=VALUE, PROP+=LINE
  std::vector<std::string> scripts;           // of exec: EVENT=FILE
  std::vector<VariableDefinition> variables;  // of -D
  std::vector<std::string> variableFiles;
  std::vector<std::string> secrets;     // names of variables
  std::vector<std::string> only, skip;  // steps, by path or Name

  LogFormat logFormat = LogFormat::Text;
  std::string logFile;  // empty: standard output
  struct Report {
    LogFormat format;
    std::string file;
  };
  std::vector<Report> reports;  // beside the log
  bool json = false;
  bool validate = false;
  bool unattended = false;
  bool allowProtected = false;
  bool strict = false;
  bool keepGoing = false;
  bool verbose = false;
  bool quiet = false;

  std::vector<std::string> packages;
  std::map<char, std::string> drives;  // by upper-case letter
  struct Option {
    std::string name, key, value;
  };
  std::vector<Option> options;
};

/// Wrong usage; the message says what is wrong.
struct UsageError {
  std::string message;
};

/// Splits "NAME=VALUE" at the first '='; raises UsageError, which shows `what` and the form wanted.
std::pair<std::string, std::string> SplitAssignment(const std::string& text, const std::string& what,
                                                    const std::string& form);

/// Reads the command line. Answers an exit code instead when there is nothing left to do: help and version
/// were asked for (0), or the usage is wrong (2, said on standard error).
std::optional<int> ReadArguments(StringList words, Arguments& arguments);

/// Hands out the commands and options, for what is made of them.
void ShowCommands(const std::function<void(const CLI::App&)>& show);
