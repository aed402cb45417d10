#pragma once

#include <ctime>

#include "base/DateTime.h"

/// Between the system's time and local date and time, to the millisecond on the way back.
TDateTime ToLocal(const timespec& time);
timespec FromLocal(TDateTime local);

inline double ToSeconds(const timespec& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}
