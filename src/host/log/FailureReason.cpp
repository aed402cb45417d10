#include "host/log/FailureReason.h"

#include "base/Text.h"

std::string_view FailureReason(std::span<const std::string> lines) {
  constexpr std::string_view kMarks[] = {"error: ", "--> "};
  std::string_view last;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    const std::string_view text = Trim(*line);
    if (last.empty()) last = text;
    for (std::string_view mark : kMarks) {
      if (text.starts_with(mark)) return text.substr(mark.size());
    }
  }
  return last.empty() ? "failed" : last;
}
