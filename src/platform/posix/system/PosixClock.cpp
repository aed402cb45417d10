#include "platform/posix/system/PosixClock.h"

#include <ctime>

#include "platform/posix/system/LocalTime.h"

double PosixClock::Seconds() {
  timespec time = {};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return ToSeconds(time);
}

TDateTime PosixClock::LocalNow() {
  timespec time = {};
  clock_gettime(CLOCK_REALTIME, &time);
  return ToLocal(time);
}

TDateTime PosixClock::UtcNow() {
  timespec time = {};
  clock_gettime(CLOCK_REALTIME, &time);
  return FromUnixSeconds(ToSeconds(time));
}

TDateTime PosixClock::ToUtc(TDateTime local) { return FromUnixSeconds(ToSeconds(FromLocal(local))); }
