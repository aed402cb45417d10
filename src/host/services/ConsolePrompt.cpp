#include "host/services/ConsolePrompt.h"

#include <algorithm>

#include "host/log/DisplayText.h"

/// The last column stays free, so that the terminal itself wraps nothing.
StringList ConsolePrompt::Wrapped(std::string_view text, size_t indent) const {
  const auto width = static_cast<size_t>(std::max(console_.OutputWidth() - 1, 1));
  StringList wrapped;
  for (const std::string& line : SplitLines(text)) {
    const StringList parts = WrapColumns(DisplayLine(line), width - std::min(width, indent));
    wrapped.insert(wrapped.end(), parts.begin(), parts.end());
  }
  return wrapped;
}

void ConsolePrompt::Show(std::string_view text, std::string_view mark) const {
  std::string shown;
  for (std::string_view before = mark; const std::string& line : Wrapped(text, mark.size())) {
    if (before.empty()) shown.append(mark.size(), ' ');
    shown.append(before).append(line).append("\n");
    before = {};
  }
  console_.Dialog().Write(shown);
}

bool ConsolePrompt::Ask(std::string_view question, Echo echo, const Take& take) {
  std::string shown = JoinLines(Wrapped(question, 0), "\n");
  shown += shown.ends_with(':') || shown.ends_with('?') ? " " : ": ";
  for (;;) {
    console_.Dialog().Write(shown);
    const InputLine line = console_.ReadLine(echo, stop_);
    const bool ended = line.state == InputState::End || line.state == InputState::Stopped;
    if (ended || echo == Echo::Off) console_.Dialog().Write("\n");  // the user's own does not show
    if (ended) return false;
    const std::string complaint =
        line.state == InputState::TooLong ? "That is more than the terminal can take." : take(line.text);
    if (complaint.empty()) return true;
    Show(complaint);
  }
}
