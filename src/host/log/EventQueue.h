#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "host/log/EventSink.h"

/// Tells events to one sink at once, and to others on a thread of its own, so that reports beside the log
/// cost the build next to nothing. What happens shows in them within milliseconds.
class EventQueue final : public EventSink {
 public:
  EventQueue(EventSink& direct, std::vector<EventSink*> queued);

  /// Until it is started, events are kept.
  void Start();

  /// Waits until everything has been told.
  ~EventQueue() override;
  EventQueue(const EventQueue&) = delete;
  EventQueue& operator=(const EventQueue&) = delete;

  void BuildStart(std::string_view project) override;
  void ActionStart(const ActionPlace& place) override;
  void Message(std::string_view path, std::string_view text) override;
  void ProgramLine(std::string_view path, ProgramStream stream, std::string_view text) override;
  void Status(std::string_view path, const StringList& lines) override;
  void Progress(std::string_view path, std::string_view text, int32_t percent) override;
  void Variable(std::string_view path, std::string_view name, const Variant& value) override;
  void Error(std::string_view path, std::string_view text) override;
  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override;
  void BuildEnd(const BuildSummary& summary) override;
  void Process(std::string_view path, std::string_view commandLine, std::string_view folder) override;
  void At(TDateTime utc) override;
  void Settle() override;
  void Hold(bool held) override { direct_.Hold(held); }

 private:
  struct Event {
    TDateTime at;
    std::function<void(EventSink&)> tell;
  };

  /// Tells an event of EventSink to the direct sink, and keeps it with copies of its arguments.
  template <class... Params>
  void Tell(void (EventSink::*event)(Params...), const std::type_identity_t<Params>&... args);
  void Push(Event event);

  void Work();
  void TellAll(const std::vector<Event>& events);

  EventSink& direct_;
  const std::vector<EventSink*> queued_;
  TDateTime now_;

  std::mutex mutex_;
  std::condition_variable wakeUp_, told_;
  std::vector<Event> events_;
  bool asleep_ = false, telling_ = false, hurried_ = false, quit_ = false;
  std::thread worker_;
};
