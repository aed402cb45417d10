#pragma once

#include <string>
#include <string_view>

#include "host/log/EventSink.h"

/// The elements of a JUnit report.
namespace junit {

struct Counts {
  int64_t tests = 0, failures = 0, errors = 0, skipped = 0;
};

/// The start of the report up to the first test case. One that can be written over is as long whatever the
/// counts and the time.
enum class HeadWidth { Natural, Fixed };
std::string Head(std::string_view project, TDateTime started, const Counts& counts, double seconds,
                 HeadWidth width);

/// What closes the report.
std::string Tail(std::string_view output);

/// A test case, which is counted; `reason` is of its failure. A failure that the build goes on with is
/// skipped to those who read the report.
std::string Case(std::string_view name, std::string_view className, const ActionOutcome& outcome,
                 std::string_view output, std::string_view reason, Counts& counts);

}  // namespace junit
