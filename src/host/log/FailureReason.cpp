#include "host/log/FailureReason.h"

#include "base/Text.h"

namespace {

/// The engine's word on an attempt that failed.
bool IsRetryNotice(std::string_view line) {
  return line.starts_with("Attempt ") && line.ends_with(" failed; trying again");
}

}  // namespace

void FailureReason::Add(std::string_view text, bool isError) {
  if (!firstError_.empty()) return;
  if (text.find_first_of("\r\n") == std::string_view::npos) return AddLine(Trim(text), isError);
  for (const std::string& line : SplitLines(text)) AddLine(Trim(line), isError);
}

void FailureReason::AddLine(std::string_view line, bool isError) {
  constexpr std::string_view kMark = "--> ";
  if (line.starts_with(kMark)) {
    isError = true;
    line.remove_prefix(kMark.size());
  }
  if (line.empty() || IsRetryNotice(line)) return;
  lastLine_ = line;
  if (isError && firstError_.empty()) firstError_ = line;
}
