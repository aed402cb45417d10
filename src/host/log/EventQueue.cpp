#include "host/log/EventQueue.h"

#include <chrono>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace {

constexpr size_t kMostEvents = 20'000;  // that wait to be told

// Waking a thread costs more than an event does, so it looks again only after a moment.
constexpr auto kMoment = std::chrono::milliseconds(2);

struct KeptPlace {
  explicit KeptPlace(const ActionPlace& place)
      : path(place.path),
        type(place.type),
        title(place.title),
        passes(place.passes),
        hasChildren(place.hasChildren) {}
  operator ActionPlace() const { return {path, type, title, hasChildren, passes}; }

  std::string path, type, title, passes;
  bool hasChildren;
};

/// What is kept of an argument; texts are views into what goes.
template <class T>
struct Keep {
  using Type = T;
};
template <>
struct Keep<std::string_view> {
  using Type = std::string;
};
template <>
struct Keep<ActionPlace> {
  using Type = KeptPlace;
};
template <class T>
using Kept = typename Keep<std::remove_cvref_t<T>>::Type;

}  // namespace

EventQueue::EventQueue(EventSink& direct, std::vector<EventSink*> queued)
    : direct_(direct), queued_(std::move(queued)) {}

void EventQueue::Start() {
  worker_ = std::thread([this] { Work(); });
}

EventQueue::~EventQueue() {
  {
    const std::lock_guard lock(mutex_);
    quit_ = true;
  }
  wakeUp_.notify_one();
  if (worker_.joinable()) worker_.join();
}

template <class... Params>
void EventQueue::Tell(void (EventSink::*event)(Params...), const std::type_identity_t<Params>&... args) {
  (direct_.*event)(args...);
  Push({now_, [event, kept = std::tuple<Kept<Params>...>(Kept<Params>(args)...)](EventSink& sink) {
          std::apply([&](const auto&... values) { (sink.*event)(values...); }, kept);
        }});
}

void EventQueue::Push(Event event) {
  std::unique_lock lock(mutex_);
  told_.wait(lock, [this] { return events_.size() < kMostEvents || !worker_.joinable(); });
  events_.push_back(std::move(event));
  if (std::exchange(asleep_, false) || events_.size() == kMostEvents / 2) wakeUp_.notify_one();
}

void EventQueue::Settle() {
  direct_.Settle();
  std::unique_lock lock(mutex_);
  hurried_ = true;
  wakeUp_.notify_one();
  told_.wait(lock, [this] { return (events_.empty() && !telling_) || !worker_.joinable(); });
}

/// The worker's thread.
void EventQueue::Work() {
  std::vector<Event> events;
  std::unique_lock lock(mutex_);
  for (;;) {
    asleep_ = events_.empty();
    wakeUp_.wait(lock, [this] { return !events_.empty() || quit_; });
    asleep_ = false;
    if (events_.empty()) return;
    events.swap(events_);
    telling_ = true;
    hurried_ = false;
    lock.unlock();
    TellAll(events);
    events.clear();
    lock.lock();
    telling_ = false;
    told_.notify_one();
    wakeUp_.wait_for(lock, kMoment,
                     [this] { return hurried_ || quit_ || events_.size() >= kMostEvents / 2; });
  }
}

void EventQueue::TellAll(const std::vector<Event>& events) {
  for (EventSink* sink : queued_) {
    sink->Hold(true);
    for (const Event& event : events) {
      sink->At(event.at);
      event.tell(*sink);
    }
    sink->Hold(false);
  }
}

void EventQueue::At(TDateTime utc) {
  now_ = utc;
  direct_.At(utc);
}

void EventQueue::BuildStart(std::string_view project) { Tell(&EventSink::BuildStart, project); }
void EventQueue::ActionStart(const ActionPlace& place) { Tell(&EventSink::ActionStart, place); }
void EventQueue::Message(std::string_view path, std::string_view text) {
  Tell(&EventSink::Message, path, text);
}
void EventQueue::ProgramLine(std::string_view path, ProgramStream stream, std::string_view text) {
  Tell(&EventSink::ProgramLine, path, stream, text);
}
void EventQueue::Status(std::string_view path, const StringList& lines) {
  Tell(&EventSink::Status, path, lines);
}
void EventQueue::Progress(std::string_view path, std::string_view text, int32_t percent) {
  Tell(&EventSink::Progress, path, text, percent);
}
void EventQueue::Variable(std::string_view path, std::string_view name, const Variant& value) {
  Tell(&EventSink::Variable, path, name, value);
}
void EventQueue::Error(std::string_view path, std::string_view text) { Tell(&EventSink::Error, path, text); }
void EventQueue::ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) {
  Tell(&EventSink::ActionEnd, place, outcome);
}
void EventQueue::BuildEnd(const BuildSummary& summary) { Tell(&EventSink::BuildEnd, summary); }
void EventQueue::Process(std::string_view path, std::string_view commandLine, std::string_view folder) {
  Tell(&EventSink::Process, path, commandLine, folder);
}
