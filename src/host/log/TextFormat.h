#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/log/EventSink.h"
#include "host/log/FailedSteps.h"

/// The lines of the log for people: how they are indented, marked and coloured.
class TextFormat {
 public:
  explicit TextFormat(bool colours) : colours_(colours) {}

  // Each appends whole lines to `out`; what stands in them is safe to show. An action's lines are indented
  // below its title, a title by its depth in the tree.
  void Heading(std::string& out, std::string_view project) const;
  void Title(std::string& out, const ActionPlace& place) const;
  void Text(std::string& out, std::string_view path, std::string_view text) const;
  void Error(std::string& out, std::string_view path, std::string_view text) const;
  void Variable(std::string& out, std::string_view path, std::string_view name, const Variant& value) const;
  void Process(std::string& out, std::string_view path, std::string_view commandLine,
               std::string_view folder) const;
  void Summary(std::string& out, const BuildSummary& summary) const;

  /// The steps that made the build fail, each with its reason; nothing for none.
  void Failures(std::string& out, const std::vector<FailedStep>& steps) const;

  /// How an action ended; names it when its title stands far above, over the lines of its children.
  void Result(std::string& out, const ActionPlace& place, const ActionOutcome& outcome) const;
  void TimedResult(std::string& out, const ActionPlace& place, const ActionOutcome& outcome) const;

 private:
  enum class Tone { Plain, Strong, Faint, Good, Warning, Bad };

  static Tone ResultTone(ActionResult result);
  void Note(std::string& out, const ActionPlace& place, Tone tone, std::string note) const;
  void Lines(std::string& out, size_t depth, Tone tone, std::string_view mark, std::string_view text) const;
  void Line(std::string& out, size_t indent, Tone tone, std::string_view mark, std::string_view text) const;

  bool colours_;
};

/// How deep in the tree a path leads; 0 for the empty path.
size_t PathDepth(std::string_view path);
