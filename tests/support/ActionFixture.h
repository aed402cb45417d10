#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/catalogue/Catalogue.h"
#include "host/engine/BuildContext.h"
#include "host/log/EventSink.h"
#include "platform/CreatePlatform.h"
#include "support/FaultyPlatform.h"
#include "support/SystemText.h"
#include "support/TempFolder.h"

/// Keeps what a build reports: one line per event in `events`, the log lines alone in `lines`.
class RecordingEvents final : public EventSink {
 public:
  StringList events;
  StringList lines;   // messages and status lines
  StringList errors;  // what the host reported

  void Clear() { events = lines = errors = {}; }

  /// The events of a kind.
  StringList Of(std::string_view kind) const;

  void BuildStart(std::string_view project) override { Add("build-start", project); }
  void ActionStart(const ActionPlace& place) override { Add("start", place.path); }
  void Message(std::string_view path, std::string_view text) override;
  void Status(std::string_view path, const StringList& status) override;
  void Progress(std::string_view path, std::string_view text, int32_t percent) override;
  void Variable(std::string_view path, std::string_view name, const Variant& value) override;
  void Error(std::string_view path, std::string_view text) override;
  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override;
  void Process(std::string_view path, std::string_view commandLine, std::string_view folder) override;
  void BuildEnd(const BuildSummary& summary) override;

 private:
  void Add(std::string_view kind, std::string_view rest);
};

/// A real folder, platform and host for the actions of a test; `Wrap` may exchange parts of the platform.
class ActionFixture {
 public:
  using Wrap = std::function<Platform(const Platform& real)>;
  explicit ActionFixture(const Wrap& wrap = {}, bool unattended = true);

  TempFolder folder;

  /// What is to go wrong on the platform; nothing unless a test says so.
  Fault fault;

  template <class Action>
  std::unique_ptr<Action> Make() {
    return std::make_unique<Action>(context_);
  }

  /// Runs the action and answers its result; `lines` and `errors` then hold this run's.
  bool Run(TCustomVekAction& action);

  const StringList& Lines() const { return events_.lines; }
  const StringList& Errors() const { return events_.errors; }
  BuildContext& Context() { return context_; }
  RecordingEvents& Events() { return events_; }
  const Platform& GetPlatform() const { return platform_.Get(); }

 private:
  std::unique_ptr<PlatformOwner> owner_;
  FaultyPlatform platform_;
  Catalogue catalogue_;
  RecordingEvents events_;
  BuildContext context_;
};
