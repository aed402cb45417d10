#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/DateTime.h"

class Clock {
 public:
  virtual ~Clock() = default;

  /// Seconds of a clock that never goes back; only differences mean anything.
  virtual double Seconds() = 0;

  virtual TDateTime LocalNow() = 0;

  virtual TDateTime UtcNow() = 0;

  /// The UTC of a local date and time; one of the two in the hour that clocks are set back by.
  virtual TDateTime ToUtc(TDateTime local) = 0;

  /// The date without the time, in the short form that the user's locale gives dates.
  virtual std::string ShortDate(TDateTime local) = 0;

  /// The time of day in its short and in its long form, and what a short date with a long time stands for;
  /// nothing for another text.
  virtual std::string ShortTime(TDateTime local) = 0;
  virtual std::string LongTime(TDateTime local) = 0;
  virtual std::optional<TDateTime> ParseDateTime(std::string_view text) = 0;
};
