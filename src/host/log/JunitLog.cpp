#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "host/log/FailureReason.h"
#include "host/log/JunitCase.h"
#include "host/log/LogOutput.h"
#include "host/log/Logs.h"

namespace {

/// An action that has started and not ended.
struct OpenAction {
  std::string path, title, output = {};
  FailureReason reason = {};
  bool reportedBelow = false;  // a test case of one of its children shows that it did not end well
};

/// In a file the report is whole after every case: each is written over the end, and the counts in the head
/// anew. Elsewhere it is written when the build ends.
class JunitLog final : public EventSink {
 public:
  explicit JunitLog(LogOutput& output) : output_(output) {}

  void BuildStart(std::string_view project) override {
    project_ = project;
    started_ = now_;
    Save();
  }

  void ActionStart(const ActionPlace& place) override {
    open_.push_back({std::string(place.path), std::string(place.title)});
  }

  void Message(std::string_view path, std::string_view text) override {
    OpenAction* action = Find(path);
    (action != nullptr ? action->output : suiteOutput_).append(text).append("\n");
    if (action != nullptr) action->reason.Add(text, false);
  }

  void Status(std::string_view path, const StringList& lines) override {
    for (const std::string& line : lines) Message(path, line);
  }

  void Progress(std::string_view, std::string_view, int32_t) override {}
  void Variable(std::string_view, std::string_view, const Variant&) override {}

  void Error(std::string_view path, std::string_view text) override {
    // What befalls a group shows with what runs in it.
    OpenAction* found = Find(path);
    if (found == nullptr) return AddBuildCase(ActionResult::Failure, text);
    open_.back().output.append("error: ").append(text).append("\n");
    for (; found <= &open_.back(); ++found) found->reason.Add(text, true);
  }

  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override {
    const ActionResult result = outcome.result;
    const OpenAction action = std::move(open_.back());
    open_.pop_back();
    const bool endedBadly = result == ActionResult::Failure || result == ActionResult::Stopped;
    if (place.hasChildren && (!endedBadly || action.reportedBelow)) {
      suiteOutput_ += action.output;
    } else {
      cases_ +=
          junit::Case(UniqueName(place), ClassName(), outcome, action.output, action.reason.Text(), counts_);
      Save();
    }
    if (!open_.empty()) open_.back().reportedBelow |= endedBadly || action.reportedBelow;
  }

  void BuildEnd(const BuildSummary& summary) override {
    const bool endedBadly =
        summary.result == ActionResult::Failure || summary.result == ActionResult::Stopped;
    if (endedBadly && counts_.failures + counts_.errors == 0) AddBuildCase(summary.result, "");
    if (output_.CanRewrite()) return Save(summary.seconds, suiteOutput_);
    output_.Write(junit::Head(project_, started_, counts_, summary.seconds, junit::HeadWidth::Natural) +
                  cases_ + junit::Tail(suiteOutput_));
  }

  void At(TDateTime utc) override { now_ = utc; }

  void Hold(bool held) override {
    held_ = held;
    if (!held && !cases_.empty()) Save();
  }

 private:
  OpenAction* Find(std::string_view path) {
    const auto found = std::find_if(open_.rbegin(), open_.rend(),
                                    [path](const OpenAction& action) { return action.path == path; });
    return found == open_.rend() ? nullptr : &*found;
  }

  /// What went wrong outside the actions shows as a test case, so that the report is not all green.
  void AddBuildCase(ActionResult result, std::string_view text) {
    cases_ += junit::Case("Build", project_, {.result = result}, text, text, counts_);
  }

  /// Readers take cases of one name for one case.
  std::string UniqueName(const ActionPlace& place) {
    std::string name = TitleInPass(place);
    if (TakeName(name)) return name;
    name.append(" [").append(place.path).append("]");
    if (TakeName(name)) return name;
    for (int64_t repeated = 2;; ++repeated) {  // by another attempt
      const std::string numbered = name + " #" + std::to_string(repeated);
      if (TakeName(numbered)) return numbered;
    }
  }

  /// False for a name that was taken before, or, once in a while, for one that looks so.
  bool TakeName(const std::string& name) { return names_.insert(std::hash<std::string>()(name)).second; }

  /// The titles of what an action stands in.
  std::string ClassName() const {
    std::string name;
    for (const OpenAction& group : open_) name.append(name.empty() ? "" : " / ").append(group.title);
    return name.empty() ? project_ : name;
  }

  void Save() {
    constexpr double kSecondsPerDay = 86400;
    if (!held_ && output_.CanRewrite()) Save((now_.days - started_.days) * kSecondsPerDay, "");
  }

  void Save(double seconds, std::string_view output) {
    const std::string head = junit::Head(project_, started_, counts_, seconds, junit::HeadWidth::Fixed);
    if (end_ == 0) end_ = head.size();
    output_.WriteAt(end_, cases_ + junit::Tail(output));
    output_.WriteAt(0, head);
    end_ += cases_.size();
    cases_.clear();
  }

  LogOutput& output_;
  std::string project_, cases_, suiteOutput_;
  TDateTime started_, now_;
  std::vector<OpenAction> open_;
  std::unordered_set<size_t> names_;  // as hashes: there may be millions
  junit::Counts counts_;
  uint64_t end_ = 0;  // of what is written of the cases
  bool held_ = false;
};

}  // namespace

std::unique_ptr<EventSink> CreateJunitLog(LogOutput& output) { return std::make_unique<JunitLog>(output); }
