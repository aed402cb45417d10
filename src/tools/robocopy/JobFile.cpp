#include "tools/robocopy/JobFile.h"

#include <algorithm>

#include "base/Parameters.h"
#include "platform/TextEncoding.h"

namespace {

using Reader = SwitchReader<RobocopySettings>;

std::string_view WithoutComment(std::string_view line) {
  for (size_t at = line.find("::"); at != std::string_view::npos; at = line.find("::", at + 1)) {
    const bool begins = at == 0 || line[at - 1] == ' ' || line[at - 1] == '\t';
    if (begins) return line.substr(0, at);
  }
  return line;
}

const Switch<RobocopySettings>* RowOf(std::string_view argument) {
  RobocopySettings unused;
  return Reader(RobocopySwitches(), unused).Find(argument);
}

/// A value that runs to the end of its line, quotes or not: a path.
bool TakesPath(std::string_view line) {
  const auto* row = RowOf(line.substr(0, line.find_first_of(" \t")));
  return row != nullptr && row->takes == SwitchValue::Required &&
         (row->value == "path" || row->value == "file");
}

std::string Unquoted(std::string_view text) {
  std::string result(text);
  std::erase(result, '"');
  return result;
}

}  // namespace

StringList JobArguments(std::string_view contents) {
  const TextEncoding encoding = EncodingOf(contents);
  const std::string decoded =
      encoding == TextEncoding::Plain ? std::string(contents) : DecodeUtf16(contents, encoding);
  std::string_view text = decoded;
  if (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
  StringList arguments;
  for (const std::string& whole : SplitLines(text)) {
    const std::string_view line = Trim(WithoutComment(whole));
    if (line.empty()) continue;
    if (TakesPath(line) || (line[0] != '/' && line.find('"') == std::string_view::npos)) {
      arguments.push_back(Unquoted(line));
    } else {
      std::ranges::move(SplitParameters(line), std::back_inserter(arguments));
    }
  }
  return arguments;
}

std::string JobContents(const RobocopySettings& settings, const StringList& options) {
  std::string text = "::\n:: Robocopy Job\n::\n\n";
  const auto entries = [&](std::string_view name, const StringList& list) {
    if (list.empty()) return;
    text.append("\t/").append(name).append("\n");
    for (const std::string& entry : list) text += "\t  " + entry + '\n';
  };
  if (!settings.source.empty() && !settings.hasNoSource) text += "\t/SD:" + settings.source + '\n';
  if (!settings.target.empty() && !settings.hasNoTarget) text += "\t/DD:" + settings.target + '\n';
  entries("IF", settings.names);
  entries("XF", settings.excludedFiles);
  entries("XD", settings.excludedFolders);
  constexpr std::string_view kOfJobs[] = {"JOB", "SAVE", "QUIT", "NOSD", "NODD", "SD", "DD"};
  for (const std::string& option : options) {
    const auto* row = RowOf(option);
    const bool isEntry = row == nullptr || row->takes == SwitchValue::List;
    if (isEntry || std::ranges::find(kOfJobs, row->name) != std::end(kOfJobs)) continue;
    text += '\t' + option + "\t\t:: " + std::string(row->help) + '\n';
  }
  return text;
}
