#include "host/log/FailedSteps.h"

#include <algorithm>

void FailedSteps::Start(const ActionPlace& place) {
  open_.push_back({std::string(place.path), {}, failed_.size()});
}

void FailedSteps::Line(std::string_view path, std::string_view text, bool isError) {
  const auto found =
      std::find_if(open_.rbegin(), open_.rend(), [path](const Open& action) { return action.path == path; });
  if (found == open_.rend()) return;
  if (!isError) return found->reason.Add(text, false);
  // What befalls a group befalls what runs in it: its time is up.
  for (auto action = found.base() - 1; action != open_.end(); ++action) action->reason.Add(text, true);
}

void FailedSteps::End(const ActionPlace& place, const ActionOutcome& outcome) {
  if (open_.empty()) return;
  const Open action = std::move(open_.back());
  open_.pop_back();
  if (outcome.result != ActionResult::Failure || outcome.ignored) return failed_.resize(action.failedBefore);
  if (failed_.size() > action.failedBefore) return;
  failed_.push_back({std::string(place.path), TitleInPass(place), action.reason.Text()});
}
