#include "platform/posix/system/LocalTime.h"

#include <cmath>

TDateTime ToLocal(const timespec& time) {
  std::tm local = {};
  localtime_r(&time.tv_sec, &local);
  return FromUnixSeconds(ToSeconds(time) + static_cast<double>(local.tm_gmtoff));
}

timespec FromLocal(TDateTime local) {
  const double milliseconds = std::round(ToUnixSeconds(local) * 1e3);
  const double seconds = std::floor(milliseconds / 1e3);
  auto asUtc = static_cast<time_t>(seconds);
  std::tm parts = {};
  gmtime_r(&asUtc, &parts);
  parts.tm_isdst = -1;
  return {.tv_sec = mktime(&parts), .tv_nsec = std::lround(milliseconds - seconds * 1e3) * 1000000};
}
