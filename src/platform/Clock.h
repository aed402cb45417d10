#pragma once

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
};
