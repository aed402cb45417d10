#include <algorithm>
#include <charconv>
#include <span>
#include <string>
#include <vector>

#include "base/Text.h"
#include "host/log/FailureReason.h"
#include "host/log/LogOutput.h"
#include "host/log/Logs.h"
#include "host/log/XmlText.h"

namespace {

constexpr size_t kFailureLines = 10;

/// An action that has started and not ended.
struct OpenAction {
  std::string path, output;
  bool reportedBelow = false;  // a test case of one of its children shows that it did not end well
};

struct Counts {
  int64_t tests = 0, failures = 0, errors = 0, skipped = 0;
};

std::string Attribute(std::string_view name, std::string_view value) {
  return std::string(" ").append(name).append("=\"").append(EscapeXmlAttribute(value)).append("\"");
}

std::string TimeAttribute(double seconds) {
  char text[32];
  const auto end =
      std::to_chars(text, std::end(text), std::clamp(seconds, 0.0, 1e9), std::chars_format::fixed, 3);
  return Attribute("time", {text, end.ptr});
}

std::string SystemOut(std::string_view indent, std::string_view output) {
  if (output.empty()) return {};
  return std::string(indent).append("<system-out>").append(EscapeXmlText(output)).append("</system-out>\n");
}

std::string FailureElement(std::string_view output) {
  const StringList lines = SplitLines(output);
  std::string element = "      <failure" + Attribute("message", FailureReason(lines));
  if (lines.empty()) return element + "/>\n";
  std::string text;
  for (size_t i = lines.size() - std::min(lines.size(), kFailureLines); i < lines.size(); ++i)
    text += lines[i] + '\n';
  return element + '>' + EscapeXmlText(text) + "</failure>\n";
}

/// A failure that is ignored is no failure to those who read the report.
std::string SkippedElement(std::string_view output) {
  const std::string reason = "failed, ignored: " + std::string(FailureReason(SplitLines(output)));
  return "      <skipped" + Attribute("message", reason) + "/>\n";
}

class JunitLog final : public EventSink {
 public:
  explicit JunitLog(LogOutput& output) : output_(output) {}

  void BuildStart(std::string_view project) override { project_ = project; }

  void ActionStart(const ActionPlace& place) override { open_.push_back({std::string(place.path), {}}); }

  void Message(std::string_view path, std::string_view text) override {
    OpenAction* action = Find(path);
    (action != nullptr ? action->output : suiteOutput_).append(text).append("\n");
  }

  void Status(std::string_view path, const StringList& lines) override {
    for (const std::string& line : lines) Message(path, line);
  }

  void Progress(std::string_view, std::string_view, int32_t) override {}
  void Variable(std::string_view, std::string_view, const Variant&) override {}

  void Error(std::string_view path, std::string_view text) override {
    if (Find(path) != nullptr) return Message(path, std::string("error: ").append(text));
    AddBuildCase(ActionResult::Failure, text);
  }

  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override {
    const ActionResult result = outcome.result;
    const OpenAction action = std::move(open_.back());
    open_.pop_back();
    const bool endedBadly = result == ActionResult::Failure || result == ActionResult::Stopped;
    if (place.hasChildren && (!endedBadly || action.reportedBelow)) {
      suiteOutput_ += action.output;
    } else {
      AddCase(place, outcome, action.output);
    }
    if (!open_.empty()) open_.back().reportedBelow |= endedBadly || action.reportedBelow;
  }

  void BuildEnd(const BuildSummary& summary) override {
    const bool endedBadly =
        summary.result == ActionResult::Failure || summary.result == ActionResult::Stopped;
    if (endedBadly && counts_.failures + counts_.errors == 0) AddBuildCase(summary.result, "");
    const std::string head = Attribute("name", project_) + Attribute("tests", std::to_string(counts_.tests)) +
                             Attribute("failures", std::to_string(counts_.failures)) +
                             Attribute("errors", std::to_string(counts_.errors)) +
                             Attribute("skipped", std::to_string(counts_.skipped)) +
                             TimeAttribute(summary.seconds);
    output_.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n  <testsuite" + head + ">\n" +
                  cases_ + SystemOut("    ", suiteOutput_) + "  </testsuite>\n</testsuites>\n");
  }

 private:
  OpenAction* Find(std::string_view path) {
    const auto found = std::find_if(open_.rbegin(), open_.rend(),
                                    [path](const OpenAction& action) { return action.path == path; });
    return found == open_.rend() ? nullptr : &*found;
  }

  /// What went wrong outside the actions shows as a test case, so that the report is not all green.
  void AddBuildCase(ActionResult result, std::string_view text) {
    AddCase({.path = "", .type = "Build", .title = "Build"}, {.result = result}, text);
  }

  void AddCase(const ActionPlace& place, const ActionOutcome& outcome, std::string_view output) {
    cases_ += "    <testcase" + Attribute("name", place.title) +
              Attribute("classname", place.type.empty() ? place.path : place.type) +
              TimeAttribute(outcome.seconds);
    const std::string body = ResultElement(outcome, output) + SystemOut("      ", output);
    cases_ += body.empty() ? "/>\n" : ">\n" + body + "    </testcase>\n";
    ++counts_.tests;
  }

  std::string ResultElement(const ActionOutcome& outcome, std::string_view output) {
    switch (outcome.result) {
      case ActionResult::Failure:
        if (outcome.ignored) {
          ++counts_.skipped;
          return SkippedElement(output);
        }
        ++counts_.failures;
        return FailureElement(output);
      case ActionResult::Skipped:
        ++counts_.skipped;
        return "      <skipped/>\n";
      case ActionResult::Stopped:
        ++counts_.errors;
        return "      <error message=\"stopped\"/>\n";
      case ActionResult::Success:
        break;
    }
    return {};
  }

  LogOutput& output_;
  std::string project_, cases_, suiteOutput_;
  std::vector<OpenAction> open_;
  Counts counts_;
};

}  // namespace

std::unique_ptr<EventSink> CreateJunitLog(LogOutput& output) { return std::make_unique<JunitLog>(output); }
