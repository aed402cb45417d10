#include "platform/posix/system/PosixClock.h"

#include <clocale>
#include <cmath>

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

std::string PosixClock::ShortDate(TDateTime local) {
  const auto asUtc = static_cast<time_t>(std::floor(ToUnixSeconds(local)));
  std::tm parts = {};
  gmtime_r(&asUtc, &parts);
  // Only here: the program as a whole stays out of the user's locale.
  const locale_t users = newlocale(LC_TIME_MASK, "", nullptr);
  char text[64];
  if (users == nullptr) return {text, strftime(text, sizeof text, "%x", &parts)};
  const size_t length = strftime_l(text, sizeof text, "%x", &parts, users);
  freelocale(users);
  return {text, length};
}

TDateTime PosixClock::UtcNow() {
  timespec time = {};
  clock_gettime(CLOCK_REALTIME, &time);
  return FromUnixSeconds(ToSeconds(time));
}

TDateTime PosixClock::ToUtc(TDateTime local) { return FromUnixSeconds(ToSeconds(FromLocal(local))); }
