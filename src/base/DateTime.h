#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vekcoreapi_export.h"

/// A local date and time in days since 1899-12-30, the time of day as the fraction.
struct TDateTime {
  double days = 0;
  friend constexpr bool operator==(TDateTime, TDateTime) = default;
};

/// The same on the calendar and the clock.
struct DateTimeParts {
  int year;
  unsigned month, day, weekday;  // from 1; Sunday is 1
  unsigned hour, minute, second, millisecond;
};

/// Rounded to the millisecond.
VEK_API DateTimeParts ToParts(TDateTime value);

/// ISO 8601 local time to the second: "2007-03-05T10:00:00".
VEK_API std::string ToIso8601(TDateTime value);

/// The same of a time in UTC, to the millisecond: "2007-03-05T10:00:00.123Z".
VEK_API std::string ToIso8601Utc(TDateTime value);

/// Reads "2007-03-05", "2007-03-05T10:00" or "2007-03-05T10:00:00" (a blank may stand for the T);
/// nothing when the text is no valid date and time.
VEK_API std::optional<TDateTime> ParseIso8601(std::string_view text);

/// 1970-01-01 in those days.
inline constexpr TDateTime kUnixEpoch{25569};

/// The date and time of the given Unix time in seconds, taken as it stands (no time zone is applied).
VEK_API TDateTime FromUnixSeconds(double seconds);

/// The inverse, to the rounding of days.
VEK_API double ToUnixSeconds(TDateTime value);
