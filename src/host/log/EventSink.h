#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/DateTime.h"
#include "base/Text.h"
#include "coreapi/Vekvariant.h"

enum class ActionResult { Success, Failure, Skipped, Stopped };

/// "success", "failure", "skipped" or "stopped".
std::string_view ActionResultName(ActionResult result);

/// Where a line of a program's output came from.
enum class ProgramStream { StdOut, StdErr };

/// An execution of an action: its place in the tree ("/1/3/2", 1-based), its type id and its title.
struct ActionPlace {
  std::string_view path;
  std::string_view type;
  std::string_view title;
  bool hasChildren = false;
  std::string_view passes = {};  // of the loops that it stands in, outermost first: "3", "3.1"
};

/// The title, with the pass where the action stands in a loop: "Copy (pass 2.1)".
std::string TitleInPass(const ActionPlace& place);

/// How an execution of an action ended.
struct ActionOutcome {
  ActionResult result = ActionResult::Success;
  double seconds = 0;
  int64_t errors = 0;     // that the action logged, in its last attempt
  bool ignored = false;   // the build goes on although it failed
  bool forgiven = false;  // the same, or what it stands in is ignored or tried again
};

struct BuildSummary {
  ActionResult result = ActionResult::Success;
  double seconds = 0;
  int64_t actions = 0;    // executions, every pass of a loop counted, a retried action once
  int64_t failures = 0;   // executions that ended so, ignored ones included
  int64_t errors = 0;     // that actions logged although they succeeded
  int64_t erroneous = 0;  // executions that did so
  int64_t ignored = 0;    // failures that were ignored

  void AddCounts(const BuildSummary& part) {
    actions += part.actions;
    failures += part.failures;
    errors += part.errors;
    erroneous += part.erroneous;
    ignored += part.ignored;
  }
};

/// Receives what happens in a build, as it happens; an action's end comes after those of its children. A
/// path is empty for what concerns no action. [build thread]
class EventSink {
 public:
  virtual ~EventSink() = default;
  virtual void BuildStart(std::string_view project) = 0;
  virtual void ActionStart(const ActionPlace& place) = 0;
  virtual void Message(std::string_view path, std::string_view text) = 0;

  /// A message that is a line of a program's output.
  virtual void ProgramLine(std::string_view path, ProgramStream /*stream*/, std::string_view text) {
    Message(path, text);
  }
  virtual void Status(std::string_view path, const StringList& lines) = 0;
  virtual void Progress(std::string_view path, std::string_view text, int32_t percent) = 0;
  virtual void Variable(std::string_view path, std::string_view name, const Variant& value) = 0;
  virtual void Error(std::string_view path, std::string_view text) = 0;
  virtual void ActionEnd(const ActionPlace& place, const ActionOutcome& outcome) = 0;
  virtual void BuildEnd(const BuildSummary& summary) = 0;

  /// A program has been started. `folder` is a full path.
  virtual void Process(std::string_view /*path*/, std::string_view /*commandLine*/,
                       std::string_view /*folder*/) {}

  /// When what is told next happens, in UTC.
  virtual void At(TDateTime /*utc*/) {}

  /// Returns when what was told is written: what comes now may end this program.
  virtual void Settle() {}

  /// Events need not be written before they are let go.
  virtual void Hold(bool /*held*/) {}
};
