#pragma once

#include <functional>
#include <string>

#include "base/Text.h"
#include "platform/Processes.h"

/// The program that tests run.
inline std::string TestChild() { return VEK_BIN_DIR "/" VEK_TEST_CHILD; }

/// Keeps what a program writes, and may do something at each line.
class RecordedOutput final : public ProcessOutput {
 public:
  StringList out, err;
  std::function<void(std::string_view line)> atLine;

  void OnStdOut(std::string_view line) override { Add(out, line); }
  void OnStdErr(std::string_view line) override { Add(err, line); }

  /// The number that stands after the word in its line of standard output; 0 without such a line.
  unsigned long NumberAfter(const std::string& word) const {
    for (const std::string& line : out) {
      if (line.starts_with(word + ' ')) return std::stoul(line.substr(word.size() + 1));
    }
    return 0;
  }

 private:
  void Add(StringList& lines, std::string_view line) {
    lines.emplace_back(line);
    if (atLine) atLine(line);
  }
};
