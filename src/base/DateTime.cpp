#include "base/DateTime.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): calendar arithmetic reads as prose

constexpr sys_days kEpoch = sys_days(year(1899) / December / 30);
constexpr int64_t kSecondsPerDay = 86400;

/// Reads `count` digits; -1 when they are not all digits.
int Digits(std::string_view text, size_t position, size_t count) {
  if (position + count > text.size()) return -1;
  int number = 0;
  for (char c : text.substr(position, count)) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return number;
}

/// The seconds of day in "10:00" or "10:00:00"; -1 when the text is no time of day.
int64_t ParseTimeOfDay(std::string_view text) {
  const bool hasSeconds = text.size() == 8 && text[5] == ':';
  if ((text.size() != 5 && !hasSeconds) || text[2] != ':') return -1;
  const int hour = Digits(text, 0, 2), minute = Digits(text, 3, 2);
  const int second = hasSeconds ? Digits(text, 6, 2) : 0;
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return -1;
  return (hour * 60 + minute) * 60 + second;
}

}  // namespace

DateTimeParts ToParts(TDateTime value) {
  const milliseconds sinceEpoch(std::llround(value.days * static_cast<double>(kSecondsPerDay) * 1e3));
  const sys_days date = kEpoch + floor<days>(sinceEpoch);
  const hh_mm_ss time(sinceEpoch - floor<days>(sinceEpoch));
  const year_month_day calendar(date);
  const auto number = [](auto part) { return static_cast<unsigned>(part.count()); };
  return {.year = static_cast<int>(calendar.year()),
          .month = static_cast<unsigned>(calendar.month()),
          .day = static_cast<unsigned>(calendar.day()),
          .weekday = weekday(date).c_encoding() + 1,
          .hour = number(time.hours()),
          .minute = number(time.minutes()),
          .second = number(time.seconds()),
          .millisecond = number(time.subseconds())};
}

std::string ToIso8601Utc(TDateTime value) {
  const DateTimeParts parts = ToParts(value);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02u:%02u:%02u.%03uZ", parts.year, parts.month, parts.day,
                parts.hour, parts.minute, parts.second, parts.millisecond);
  return text;
}

std::string ToIso8601(TDateTime value) {
  const double wholeSeconds = std::round(value.days * static_cast<double>(kSecondsPerDay));
  const DateTimeParts parts = ToParts({wholeSeconds / static_cast<double>(kSecondsPerDay)});
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02u:%02u:%02u", parts.year, parts.month, parts.day,
                parts.hour, parts.minute, parts.second);
  return text;
}

std::optional<TDateTime> ParseIso8601(std::string_view text) {
  const int yearNumber = Digits(text, 0, 4), monthNumber = Digits(text, 5, 2), dayNumber = Digits(text, 8, 2);
  if (yearNumber < 0 || monthNumber < 0 || dayNumber < 0 || text[4] != '-' || text[7] != '-') return {};
  const year_month_day date(year(yearNumber), month(static_cast<unsigned>(monthNumber)),
                            day(static_cast<unsigned>(dayNumber)));
  if (!date.ok()) return {};
  int64_t ofDay = 0;
  if (text.size() > 10) {
    if (text[10] != 'T' && text[10] != ' ') return {};
    ofDay = ParseTimeOfDay(text.substr(11));
    if (ofDay < 0) return {};
  }
  const auto wholeDays = (sys_days(date) - kEpoch).count();
  return TDateTime{static_cast<double>(wholeDays) +
                   static_cast<double>(ofDay) / static_cast<double>(kSecondsPerDay)};
}

TDateTime FromUnixSeconds(double seconds) {
  return {kUnixEpoch.days + seconds / static_cast<double>(kSecondsPerDay)};
}

double ToUnixSeconds(TDateTime value) {
  return (value.days - kUnixEpoch.days) * static_cast<double>(kSecondsPerDay);
}
