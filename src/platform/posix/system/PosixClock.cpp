#include "platform/posix/system/PosixClock.h"

#include <ctime>

namespace {

double ToSeconds(const timespec& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

double PosixClock::Seconds() {
  timespec time = {};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return ToSeconds(time);
}

TDateTime PosixClock::LocalNow() {
  timespec time = {};
  clock_gettime(CLOCK_REALTIME, &time);
  std::tm local = {};
  localtime_r(&time.tv_sec, &local);
  return FromUnixSeconds(ToSeconds(time) + static_cast<double>(local.tm_gmtoff));
}
