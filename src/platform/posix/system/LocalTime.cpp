#include "platform/posix/system/LocalTime.h"

#include <cmath>

namespace {

/// How many seconds local time is ahead, of a moment that is given in UTC or in local time. Clocks change on
/// the quarter of an hour, so that an answer holds for all of it; to ask for each of many files would cost
/// more than what is done to them.
class Offset {
 public:
  using Find = long (*)(time_t moment);

  long At(time_t moment, Find find) {
    const time_t quarter = moment / 900;
    if (quarter != quarter_ || !known_) offset_ = find(moment);
    quarter_ = quarter;
    known_ = true;
    return offset_;
  }

 private:
  bool known_ = false;
  time_t quarter_ = 0;
  long offset_ = 0;
};

long FindAtUtc(time_t utc) {
  std::tm local = {};
  localtime_r(&utc, &local);
  return local.tm_gmtoff;
}

long FindAtLocal(time_t local) {
  std::tm parts = {};
  gmtime_r(&local, &parts);
  parts.tm_isdst = -1;
  return static_cast<long>(local - mktime(&parts));
}

}  // namespace

TDateTime ToLocal(const timespec& time) {
  static thread_local Offset offset;
  return FromUnixSeconds(ToSeconds(time) + static_cast<double>(offset.At(time.tv_sec, FindAtUtc)));
}

timespec FromLocal(TDateTime local) {
  static thread_local Offset offset;
  const double milliseconds = std::round(ToUnixSeconds(local) * 1e3);
  const double seconds = std::floor(milliseconds / 1e3);
  const auto whole = static_cast<time_t>(seconds);
  return {.tv_sec = whole - offset.At(whole, FindAtLocal),
          .tv_nsec = std::lround(milliseconds - seconds * 1e3) * 1000000};
}
