#include "host/log/QuietLog.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/log/LogOutput.h"
#include "host/log/TextFormat.h"

namespace {

// An action that talks without end keeps its last lines only.
constexpr size_t kMostKeptBytes = size_t{128} << 10;

struct OpenAction {
  std::string path, titleLine, lines;
  bool titleShown = false;
  bool shortened = false;
};

class QuietLog final : public EventSink {
 public:
  QuietLog(LogOutput& output, bool colours) : output_(output), format_(colours) {}

  void BuildStart(std::string_view /*project*/) override {}

  void ActionStart(const ActionPlace& place) override {
    OpenAction& action = open_.emplace_back();
    action.path = place.path;
    format_.Title(action.titleLine, place);
  }

  void Message(std::string_view path, std::string_view text) override {
    OpenAction* action = Find(path);
    if (action == nullptr) return;
    format_.Text(action->lines, path, text);
    Shorten(*action);
  }

  void Status(std::string_view path, const StringList& lines) override {
    for (const std::string& line : lines) Message(path, line);
  }

  void Progress(std::string_view, std::string_view, int32_t) override {}
  void Variable(std::string_view, std::string_view, const Variant&) override {}

  void Error(std::string_view path, std::string_view text) override {
    // What befalls a group shows with what runs in it.
    OpenAction* action = Find(path) != nullptr ? &open_.back() : nullptr;
    std::string atOnce;
    format_.Error(action != nullptr ? action->lines : atOnce, path, text);
    if (action != nullptr) Shorten(*action);
    output_.Write(atOnce);
  }

  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override {
    if (outcome.ignored) format_.Result(open_.back().lines, place, outcome);
    if (outcome.result == ActionResult::Failure) WriteFailure();
    open_.pop_back();
  }

  void BuildEnd(const BuildSummary& summary) override {
    std::string text;
    format_.Summary(text, summary);
    output_.Write(text);
  }

 private:
  OpenAction* Find(std::string_view path) {
    const auto found = std::find_if(open_.rbegin(), open_.rend(),
                                    [path](const OpenAction& action) { return action.path == path; });
    return found == open_.rend() ? nullptr : &*found;
  }

  static void Shorten(OpenAction& action) {
    if (action.lines.size() <= kMostKeptBytes) return;
    const size_t lineEnd = action.lines.find('\n', action.lines.size() - kMostKeptBytes / 2);
    action.lines.erase(0, lineEnd + 1);
    action.shortened = true;
  }

  /// Writes the innermost action below the titles that lead to it. What those have said before it is no part
  /// of it, and would come too late afterwards.
  void WriteFailure() {
    OpenAction& failed = open_.back();
    std::string text;
    for (OpenAction& action : open_) {
      if (!action.titleShown) text += action.titleLine;
      action.titleShown = true;
      if (&action != &failed) action.lines.clear();
    }
    if (failed.shortened) format_.Text(text, failed.path, "...");
    output_.Write(text += failed.lines);
  }

  LogOutput& output_;
  TextFormat format_;
  std::vector<OpenAction> open_;
};

}  // namespace

std::unique_ptr<EventSink> CreateQuietLog(LogOutput& output, bool colours) {
  return std::make_unique<QuietLog>(output, colours);
}
