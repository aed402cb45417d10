#include <string>
#include <vector>

#include "host/log/FailedSteps.h"
#include "host/log/LogOutput.h"
#include "host/log/Logs.h"
#include "host/log/ProgressLine.h"
#include "host/log/QuietLog.h"
#include "host/log/TextFormat.h"

namespace {

// A step below half a second would only make the progress line flicker.
constexpr double kSecond = 1.0 / 86400, kShortStep = 0.5 * kSecond;
constexpr double kRepaintPause = 0.1 * kSecond;  // nobody reads faster

/// Writes what happens as it happens: one write for each event that has something to show.
class TextLog final : public EventSink {
 public:
  TextLog(LogOutput& output, const TextLogStyle& style)
      : output_(output),
        format_(style.colours),
        progress_(style.liveProgress ? style.width : 0),
        verbose_(style.verbosity == Verbosity::Verbose) {}

  void BuildStart(std::string_view project) override {
    format_.Heading(pending_, project);
    Write();
  }

  void ActionStart(const ActionPlace& place) override {
    failed_.Start(place);
    running_.push_back({now_});
    format_.Title(pending_, place);
    Write();
  }

  void Message(std::string_view path, std::string_view text) override {
    failed_.Line(path, text, false);
    format_.Text(pending_, path, text);
    Write();
  }

  void Status(std::string_view path, const StringList& lines) override {
    for (const std::string& line : lines) {
      failed_.Line(path, line, false);
      format_.Text(pending_, path, line);
    }
    Write();
  }

  void Progress(std::string_view /*path*/, std::string_view text, int32_t percent) override {
    if (running_.empty()) return;
    Running& step = running_.back();
    if (text != step.progressText) ++step.pieces;
    step.progressText = text;
    if (now_.days - step.started.days < kShortStep) return;
    const double pause = now_.days - painted_.days;
    if (pause >= 0 && pause < kRepaintPause) return;
    painted_ = now_;
    const std::string count = step.pieces > 1 ? '[' + std::to_string(step.pieces) + "] " : "";
    output_.Write(progress_.Draw(count + step.progressText, percent));
  }

  void At(TDateTime utc) override { now_ = utc; }

  void Variable(std::string_view path, std::string_view name, const Variant& value) override {
    if (!verbose_) return;
    format_.Variable(pending_, path, name, value);
    Write();
  }

  void Process(std::string_view path, std::string_view commandLine, std::string_view folder) override {
    if (!verbose_) return;
    format_.Process(pending_, path, commandLine, folder);
    Write();
  }

  void Error(std::string_view path, std::string_view text) override {
    failed_.Line(path, text, true);
    format_.Error(pending_, path, text);
    Write();
  }

  void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) override {
    failed_.End(place, outcome);
    if (!running_.empty()) running_.pop_back();
    if (verbose_) {
      format_.TimedResult(pending_, place, outcome);
    } else if (outcome.result != ActionResult::Success) {
      format_.Result(pending_, place, outcome);
    }
    Write();
  }

  void Hold(bool held) override { output_.Hold(held); }

  void BuildEnd(const BuildSummary& summary) override {
    pending_ += '\n';
    if (summary.result == ActionResult::Failure) format_.Failures(pending_, failed_.All());
    format_.Summary(pending_, summary);
    Write();
  }

 private:
  struct Running {
    TDateTime started;
    std::string progressText = {};
    int64_t pieces = 0;  // of its work that it has told its progress of, such as files
  };

  /// Writes the pending lines in place of the progress line, which is over when an action has ended.
  void Write() {
    pending_.insert(0, progress_.Erase());
    output_.Write(pending_);
    pending_.clear();
  }

  LogOutput& output_;
  TextFormat format_;
  ProgressLine progress_;
  FailedSteps failed_;
  std::vector<Running> running_;  // innermost last
  TDateTime now_, painted_;
  bool verbose_;
  std::string pending_;
};

}  // namespace

std::unique_ptr<EventSink> CreateTextLog(LogOutput& output, const TextLogStyle& style) {
  if (style.verbosity == Verbosity::Quiet) return CreateQuietLog(output, style.colours);
  return std::make_unique<TextLog>(output, style);
}
