#include "support/Vekrun.h"

namespace {

std::string ShortEvent(const nlohmann::json& event) {
  const std::string kind = event.at("event");
  std::string text = kind.starts_with("action-") ? kind.substr(7) : kind;
  if (event.contains("path")) text += ' ' + event["path"].get<std::string>();
  for (const char* key : {"text", "result", "name", "value"}) {
    if (!event.contains(key)) continue;
    text += ' ' + (event[key].is_string() ? event[key].get<std::string>() : event[key].dump());
  }
  if (!event.contains("lines")) return text;
  for (const auto& line : event["lines"])
    text += (&line == &event["lines"][0] ? ' ' : '|') + line.get<std::string>();
  return text;
}

}  // namespace

std::vector<nlohmann::json> VekrunResult::Of(const std::string& kind) const {
  std::vector<nlohmann::json> found;
  for (const auto& event : events) {
    if (event.at("event") == kind) found.push_back(event);
  }
  return found;
}

StringList VekrunResult::Short() const {
  StringList lines;
  for (const auto& event : events) {
    if (event.at("event") != "process") lines.push_back(ShortEvent(event));
  }
  return lines;
}

VekrunResult RunJsonl(StringList arguments, const ProgramSetup& setup) {
  arguments.insert(arguments.end(), {"--log-format", "jsonl"});
  VekrunResult result{RunVekrun(arguments, setup), {}};
  for (const std::string& line : SplitLines(result.out)) result.events.push_back(nlohmann::json::parse(line));
  return result;
}

std::string ProjectOf(const std::string& actions, const std::string& variables) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<VekProject Version=\"1\">\n" +
         (variables.empty() ? "" : "<Variables>" + variables + "</Variables>\n") + "<Actions>\n" + actions +
         "</Actions>\n</VekProject>\n";
}

std::string ActionOf(const std::string& type, const std::string& properties, const std::string& inner) {
  return "<Action Type=\"" + type + "\"><Properties>" + properties + "</Properties>" +
         (inner.empty() ? "" : "<Actions>" + inner + "</Actions>") + "</Action>\n";
}
