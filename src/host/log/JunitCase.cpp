#include "host/log/JunitCase.h"

#include <algorithm>
#include <charconv>

#include "host/log/XmlText.h"

namespace junit {
namespace {

constexpr size_t kNumbersWidth = 120;  // of all counts and the time
constexpr size_t kWholeSeconds = 19;   // of a date and time in ISO 8601

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

std::string Element(std::string_view name, std::string_view message) {
  const std::string attribute = message.empty() ? "" : Attribute("message", message);
  return std::string("      <").append(name).append(attribute).append("/>\n");
}

/// The element that says how the case ended; nothing for success. The output stands in an element of its own.
std::string ResultElement(const ActionOutcome& outcome, std::string_view reason, Counts& counts) {
  switch (outcome.result) {
    case ActionResult::Failure:
      if (!outcome.ignored && !outcome.forgiven) {
        ++counts.failures;
        return Element("failure", reason);
      }
      ++counts.skipped;
      return Element("skipped",
                     (outcome.ignored ? "failed, ignored: " : "failed, passed over: ") + std::string(reason));
    case ActionResult::Skipped:
      ++counts.skipped;
      return Element("skipped", "");
    case ActionResult::Stopped:
      ++counts.errors;
      return Element("error", "stopped");
    case ActionResult::Success:
      break;
  }
  return {};
}

}  // namespace

std::string Head(std::string_view project, TDateTime started, const Counts& counts, double seconds,
                 HeadWidth width) {
  std::string numbers = Attribute("tests", std::to_string(counts.tests)) +
                        Attribute("failures", std::to_string(counts.failures)) +
                        Attribute("errors", std::to_string(counts.errors)) +
                        Attribute("skipped", std::to_string(counts.skipped)) + TimeAttribute(seconds);
  if (width == HeadWidth::Fixed) numbers.resize(std::max(numbers.size(), kNumbersWidth), ' ');
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n  <testsuite" +
         Attribute("name", project) + Attribute("timestamp", ToIso8601Utc(started).substr(0, kWholeSeconds)) +
         numbers + ">\n";
}

std::string Tail(std::string_view output) {
  return SystemOut("    ", output) + "  </testsuite>\n</testsuites>\n";
}

std::string Case(std::string_view name, std::string_view className, const ActionOutcome& outcome,
                 std::string_view output, std::string_view reason, Counts& counts) {
  ++counts.tests;
  const std::string body =
      ResultElement(outcome, reason.empty() ? "failed" : reason, counts) + SystemOut("      ", output);
  return "    <testcase" + Attribute("name", name) + Attribute("classname", className) +
         TimeAttribute(outcome.seconds) + (body.empty() ? "/>\n" : ">\n" + body + "    </testcase>\n");
}

}  // namespace junit
