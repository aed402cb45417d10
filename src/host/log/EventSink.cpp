#include "host/log/EventSink.h"

std::string_view ActionResultName(ActionResult result) {
  constexpr std::string_view kNames[] = {"success", "failure", "skipped", "stopped"};
  return kNames[static_cast<size_t>(result)];
}

std::string TitleInPass(const ActionPlace& place) {
  std::string title(place.title);
  if (!place.passes.empty()) title.append(" (pass ").append(place.passes).append(")");
  return title;
}
