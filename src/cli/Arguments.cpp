#include "cli/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "cli/CommandWords.h"
#include "cli/Commands.h"
#include "host/expressions/VariableName.h"
#include "host/project/Quoted.h"

namespace {

constexpr int kWrongUsage = 2;

constexpr std::pair<std::string_view, LogFormat> kLogFormats[] = {
    {"text", LogFormat::Text}, {"jsonl", LogFormat::Jsonl}, {"junit", LogFormat::Junit}};

LogFormat FormatOf(const std::string& name, const std::string& what) {
  for (const auto& [known, format] : kLogFormats) {
    if (SameText(known, name)) return format;
  }
  throw UsageError{what + ": it must be text, jsonl or junit"};
}

void TakeLog(const RawArguments& raw, Arguments& arguments) {
  if (raw.logFormat) arguments.logFormat = FormatOf(*raw.logFormat, "--log-format " + *raw.logFormat);
  for (const std::string& text : raw.reports) {
    const auto [format, file] = SplitAssignment(text, "--report", "FORMAT=FILE");
    arguments.reports.push_back({FormatOf(format, "--report " + text), file});
    if (file.empty()) throw UsageError{"--report " + text + ": the name of the file is empty"};
  }
  if (!raw.logFile) return;
  if (raw.logFile->empty()) throw UsageError{"--log: the name of the file is empty"};
  arguments.logFile = *raw.logFile;
}

void CheckVariableName(const std::string& name, const std::string& what) {
  if (IsVariableName(name)) return;
  throw UsageError{what + ": \"" + name + "\" is no variable name (letters, digits, _ . - ( ))"};
}

void TakeApart(const RawArguments& raw, Arguments& arguments) {
  TakeLog(raw, arguments);
  for (const std::string& text : raw.variables) {
    const auto [name, value] = SplitAssignment(text, "-D", "NAME=VALUE");
    CheckVariableName(name, "-D " + text);
    arguments.variables.push_back({name, value, "-D " + name});
  }
  for (const std::string& name : arguments.secrets) CheckVariableName(name, "--secret " + name);
  for (const std::string& text : raw.drives) {
    const auto [drive, folder] = SplitAssignment(text, "--drive", "X=DIR");
    const char letter = drive.empty() ? '\0' : static_cast<char>(drive[0] & ~0x20);
    const bool isLetter = letter >= 'A' && letter <= 'Z' && (drive.size() == 1 || drive.substr(1) == ":");
    if (!isLetter || folder.empty()) throw UsageError{"--drive " + text + ": it must be of the form X=DIR"};
    if (letter == 'Z') throw UsageError{"--drive " + text + ": Z: is always /"};
    arguments.drives[letter] = folder;
  }
  for (const std::string& text : raw.options) {
    const auto [path, value] = SplitAssignment(text, "--option", "NAME.KEY=VALUE");
    const size_t dot = path.find('.');
    if (dot == std::string::npos || dot == 0 || dot + 1 == path.size()) {
      throw UsageError{"--option " + text + ": it must be of the form NAME.KEY=VALUE"};
    }
    arguments.options.push_back({path.substr(0, dot), path.substr(dot + 1), value});
  }
  if (arguments.verbose && arguments.quiet) throw UsageError{"-v and -q exclude each other"};
}

}  // namespace

std::pair<std::string, std::string> SplitAssignment(const std::string& text, const std::string& what,
                                                    const std::string& form) {
  const size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) {
    throw UsageError{what + " " + text + ": it must be of the form " + form};
  }
  return {text.substr(0, equals), text.substr(equals + 1)};
}

std::optional<int> ReadArguments(StringList words, Arguments& arguments) {
  CLI::App app(kProgramTitle, "vekrun");
  RawArguments raw;
  DeclareCommands(app, arguments, raw);
  try {
    words = CommandFirst(std::move(words), app);
    std::reverse(words.begin(), words.end());  // the parser takes them from the back
    app.parse(std::move(words));
    TakeApart(raw, arguments);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    std::cerr << "vekrun: " << OneLine(error.what()) << " (vekrun --help shows the usage)\n";
    return kWrongUsage;
  } catch (const UsageError& error) {
    std::cerr << "vekrun: " << OneLine(error.message) << '\n';
    return kWrongUsage;
  }
  return {};
}

void ShowCommands(const std::function<void(const CLI::App&)>& show) {
  CLI::App app(kProgramTitle, "vekrun");
  Arguments arguments;
  RawArguments raw;
  DeclareCommands(app, arguments, raw);
  show(app);
}
