#pragma once

#include <string>
#include <string_view>

/// Finds the line that tells best why an action failed: the first that is an error, else the last one. That
/// the action is tried again is no reason.
class FailureReason {
 public:
  /// What the action logs, of one or several lines.
  void Add(std::string_view text, bool isError);

  /// Empty when the action has said nothing.
  const std::string& Text() const { return firstError_.empty() ? lastLine_ : firstError_; }

 private:
  void AddLine(std::string_view line, bool isError);

  std::string firstError_, lastLine_;
};
