#pragma once

#include "base/DateTime.h"

class Clock {
 public:
  virtual ~Clock() = default;

  /// Seconds of a clock that never goes back; only differences mean anything.
  virtual double Seconds() = 0;

  virtual TDateTime LocalNow() = 0;
};
