#include "host/log/TextFormat.h"

#include <algorithm>

#include "host/log/DisplayText.h"

namespace {

constexpr size_t kIndent = 2;
constexpr size_t kMostFailures = 20;  // that are listed at the end

constexpr std::string_view kToneCodes[] = {"", "\x1b[1m", "\x1b[2m", "\x1b[32m", "\x1b[33m", "\x1b[31m"};
constexpr std::string_view kToneEnd = "\x1b[0m";

struct ResultWords {
  std::string_view note, timed, summary;
};

constexpr ResultWords kWords[] = {{"succeeded", "succeeded in ", "Succeeded"},
                                  {"failed", "failed after ", "Failed"},
                                  {"skipped", "", "Skipped"},
                                  {"stopped", "stopped after ", "Stopped"}};

const ResultWords& WordsOf(ActionResult result) { return kWords[static_cast<size_t>(result)]; }

/// Warns of a failure that the build goes on with.
std::string_view IgnoredMark(const ActionOutcome& outcome) { return outcome.ignored ? ", ignored" : ""; }

/// Up to the first line break.
size_t LineLength(std::string_view text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  return std::min(line.find('\r'), line.size());
}

}  // namespace

size_t PathDepth(std::string_view path) { return static_cast<size_t>(std::ranges::count(path, '/')); }

TextFormat::Tone TextFormat::ResultTone(ActionResult result) {
  constexpr Tone kTones[] = {Tone::Good, Tone::Bad, Tone::Faint, Tone::Warning};
  return kTones[static_cast<size_t>(result)];
}

void TextFormat::Heading(std::string& out, std::string_view project) const {
  if (project.empty()) return;
  Line(out, 0, Tone::Plain, "Building ", DisplayLine(project));
  out += '\n';
}

void TextFormat::Title(std::string& out, const ActionPlace& place) const {
  const size_t depth = PathDepth(place.path);
  Line(out, kIndent * (depth - std::min<size_t>(depth, 1)), Tone::Strong, "", DisplayLine(place.title));
}

void TextFormat::Text(std::string& out, std::string_view path, std::string_view text) const {
  Lines(out, PathDepth(path), Tone::Plain, "", text);
}

void TextFormat::Error(std::string& out, std::string_view path, std::string_view text) const {
  Lines(out, PathDepth(path), Tone::Bad, "error: ", text);
}

void TextFormat::Variable(std::string& out, std::string_view path, std::string_view name,
                          const Variant& value) const {
  Lines(out, PathDepth(path), Tone::Faint, DisplayLine(name) + " = ", VariantToText(value));
}

void TextFormat::Process(std::string& out, std::string_view path, std::string_view commandLine,
                         std::string_view folder) const {
  Lines(out, PathDepth(path), Tone::Faint, "Running in " + DisplayLine(folder) + ": ", commandLine);
}

void TextFormat::Failures(std::string& out, const std::vector<FailedStep>& steps) const {
  if (steps.empty()) return;
  Line(out, 0, Tone::Plain, "", "Failed steps:");
  for (size_t i = 0; i < std::min(steps.size(), kMostFailures); ++i) {
    const auto& [path, title, reason] = steps[i];
    const std::string because = reason.empty() ? "" : ": " + DisplayLine(reason);
    Line(out, kIndent, Tone::Bad, path + ' ', DisplayLine(title) + because);
  }
  if (steps.size() <= kMostFailures) return;
  Line(out, kIndent, Tone::Plain, "... and ", std::to_string(steps.size() - kMostFailures) + " more");
}

void TextFormat::Result(std::string& out, const ActionPlace& place, const ActionOutcome& outcome) const {
  Note(out, place, ResultTone(outcome.result),
       std::string(WordsOf(outcome.result).note).append(IgnoredMark(outcome)));
}

void TextFormat::TimedResult(std::string& out, const ActionPlace& place, const ActionOutcome& outcome) const {
  const ActionResult result = outcome.result;
  if (result == ActionResult::Skipped) return Result(out, place, outcome);
  const Tone tone = result == ActionResult::Success ? Tone::Faint : ResultTone(result);
  Note(out, place, tone,
       (std::string(WordsOf(result).timed) + ElapsedText(outcome.seconds)).append(IgnoredMark(outcome)));
}

void TextFormat::Note(std::string& out, const ActionPlace& place, Tone tone, std::string note) const {
  if (place.hasChildren) note.append(": ").append(DisplayLine(place.title));
  Line(out, kIndent * PathDepth(place.path), tone, "", note);
}

void TextFormat::Summary(std::string& out, const BuildSummary& summary) const {
  std::string text;
  if (summary.errors > 0) {
    text = ", " + CountText(summary.errors, "error") + " logged by " + CountText(summary.erroneous, "step");
  }
  text += ": " + CountText(summary.actions, "action");
  if (summary.failures > 0) {
    text += ", " + CountText(summary.failures, "failure");
    if (summary.result == ActionResult::Success) {
      text += " ignored";
    } else if (summary.ignored > 0) {
      text += " (" + std::to_string(summary.ignored) + " ignored)";
    }
  }
  text += (summary.failures > 0 ? ", " : " in ") + ElapsedText(summary.seconds);
  Line(out, 0, ResultTone(summary.result), WordsOf(summary.result).summary, text);
}

/// Every line of the text, the first one behind the mark, the others indented below it.
void TextFormat::Lines(std::string& out, size_t depth, Tone tone, std::string_view mark,
                       std::string_view text) const {
  const size_t indent = kIndent * depth;
  for (bool first = true; first || !text.empty(); first = false) {
    const size_t end = LineLength(text);
    first ? Line(out, indent, tone, mark, text.substr(0, end))
          : Line(out, indent + (mark.empty() ? 0 : kIndent), tone, "", text.substr(0, end));
    text.remove_prefix(std::min(text.size(), end + (text.substr(end, 2) == "\r\n" ? 2 : 1)));
  }
}

void TextFormat::Line(std::string& out, size_t indent, Tone tone, std::string_view mark,
                      std::string_view text) const {
  if (!mark.empty() || !text.empty()) {
    const std::string_view code = colours_ ? kToneCodes[static_cast<size_t>(tone)] : "";
    out.append(indent, ' ').append(code).append(mark);
    AppendDisplayText(out, text);
    if (!code.empty()) out += kToneEnd;
  }
  out += '\n';
}
