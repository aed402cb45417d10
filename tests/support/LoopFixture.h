#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "support/ProjectFixture.h"

/// A loop whose child notes what it sees in each pass.
struct LoopFixture : ProjectFixture {
  /// Adds the loop; its child expands `seen`.
  template <class Iterator>
  Iterator& AddLoop(std::string_view seen) {
    auto& iterator = Add<Iterator>(project.actions);
    Add(project.actions.back().children, [this, seen](TProbe&) {
      passes.push_back(Relative(Context().ExpandExpression(seen)));
      return !whenPassed || whenPassed();
    });
    return iterator;
  }

  /// Runs the loop; `passes` then holds what each pass saw, relative to the folder and with '/'.
  const StringList& Iterate() {
    passes.clear();
    RunAll();
    return passes;
  }

  std::string Relative(const std::string& text) const {
    return ReplaceAll(ReplaceAll(text, folder.Path(), ""), "\\", "/");
  }

  /// The log with paths taken relative and lines joined by '|'.
  StringList LogLines() {
    StringList lines = Lines();
    for (std::string& line : lines) line = ReplaceAll(Relative(line), "\r\n", "|");
    return lines;
  }

  StringList passes;
  std::function<bool()> whenPassed;
};
