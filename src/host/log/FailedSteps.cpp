#include "host/log/FailedSteps.h"

#include "base/Text.h"

void FailedSteps::Start(const ActionPlace& place) {
  open_.push_back({std::string(place.path), {}, {}, failed_.size()});
}

void FailedSteps::Line(std::string_view path, std::string_view text, bool isError) {
  if (open_.empty() || open_.back().path != path) return;
  Open& action = open_.back();
  std::string_view line = Trim(text);
  constexpr std::string_view kMark = "--> ";
  if (line.starts_with(kMark)) {
    isError = true;
    line.remove_prefix(kMark.size());
  }
  if (line.empty()) return;
  if (isError && action.firstError.empty()) action.firstError = line;
  action.lastLine = line;
}

void FailedSteps::End(const ActionPlace& place, const ActionOutcome& outcome) {
  if (open_.empty()) return;
  const Open action = std::move(open_.back());
  open_.pop_back();
  if (outcome.result != ActionResult::Failure || outcome.ignored) return failed_.resize(action.failedBefore);
  if (failed_.size() > action.failedBefore) return;
  const std::string& reason = action.firstError.empty() ? action.lastLine : action.firstError;
  failed_.push_back({std::string(place.path), std::string(place.title), reason});
}
