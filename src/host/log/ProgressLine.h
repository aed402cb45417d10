#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// A line of text, bar and per cent that is redrawn in place at the bottom of a terminal. It needs no more of
/// the terminal than carriage returns, and leaves the last column free so that nothing wraps.
class ProgressLine {
 public:
  /// `width` in columns; 0 for a line that is never shown.
  explicit ProgressLine(int width);

  /// What to write to show the line: nothing when it looks the same already.
  std::string Draw(std::string_view text, int32_t percent);

  /// What to write before anything else: nothing when no line is shown.
  std::string Erase();

 private:
  std::string Compose(std::string_view text, size_t percent) const;

  size_t columns_;
  std::string shown_;
};
