#include "host/log/FailedSteps.h"

#include <algorithm>

#include "base/Text.h"

void FailedSteps::Start(const ActionPlace& place) {
  open_.push_back({std::string(place.path), {}, {}, failed_.size()});
}

void FailedSteps::Line(std::string_view path, std::string_view text, bool isError) {
  const auto found =
      std::find_if(open_.rbegin(), open_.rend(), [path](const Open& action) { return action.path == path; });
  if (found == open_.rend()) return;
  std::string_view line = Trim(text);
  constexpr std::string_view kMark = "--> ";
  if (line.starts_with(kMark)) {
    isError = true;
    line.remove_prefix(kMark.size());
  }
  if (line.empty()) return;
  found->lastLine = line;
  if (!isError) return;
  // What befalls a group befalls what runs in it: its time is up.
  for (auto action = found.base() - 1; action != open_.end(); ++action) {
    if (action->firstError.empty()) action->firstError = line;
  }
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
