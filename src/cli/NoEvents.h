#pragma once

#include "host/log/EventSink.h"

/// Takes events while a project is loaded and nothing runs yet.
class NoEvents final : public EventSink {
 public:
  void BuildStart(std::string_view) override {}
  void ActionStart(const ActionPlace&) override {}
  void Message(std::string_view, std::string_view) override {}
  void Status(std::string_view, const StringList&) override {}
  void Progress(std::string_view, std::string_view, int32_t) override {}
  void Variable(std::string_view, std::string_view, const Variant&) override {}
  void Error(std::string_view, std::string_view) override {}
  void ActionEnd(const ActionPlace&, const ActionOutcome&) override {}
  void BuildEnd(const BuildSummary&) override {}
};
