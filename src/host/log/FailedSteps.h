#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/log/EventSink.h"
#include "host/log/FailureReason.h"

/// An action whose failure made the build fail.
struct FailedStep {
  std::string path, title, reason;
};

/// Finds out which steps made a build fail and why: the innermost ones, without those whose failure was
/// ignored or mended by another attempt, by themselves or by what they stand in.
class FailedSteps {
 public:
  void Start(const ActionPlace& place);

  /// What an action logs.
  void Line(std::string_view path, std::string_view text, bool isError);
  void End(const ActionPlace& place, const ActionOutcome& outcome);

  const std::vector<FailedStep>& All() const { return failed_; }

 private:
  struct Open {
    std::string path;
    FailureReason reason;
    size_t failedBefore;
  };

  std::vector<Open> open_;
  std::vector<FailedStep> failed_;
};
