#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "platform/Console.h"
#include "platform/Processes.h"

/// Asks at a terminal. What is shown is wrapped to its width; control characters are spelled out.
class ConsolePrompt {
 public:
  explicit ConsolePrompt(Console& console) : console_(console) {}

  /// Shows a text of one or more lines; `mark` stands before the first one and room for it before the others.
  void Show(std::string_view text, std::string_view mark = "") const;

  /// Takes an answer: what is wrong with it, or nothing when it will do.
  using Take = std::function<std::string(const std::string& answer)>;

  /// Asks until an answer is taken. False at the end of input, and when a stop ends the wait.
  bool Ask(std::string_view question, Echo echo, const Take& take);

  /// Ends a wait, or the next one unless it is reset. [any thread]
  void Stop() { stop_.Signal(); }
  void Reset() { stop_.Reset(); }

 private:
  StringList Wrapped(std::string_view text, size_t indent) const;

  Console& console_;
  StopEvent stop_;
};
