#pragma once

#include <string>
#include <string_view>

#include "base/DateTime.h"

/// The date and time in the form that the letters of `format` ask for, each a run in any case:
///   d dd ddd dddd    day: number, two digits, "Mon", "Monday"      h hh    hour
///   m mm mmm mmmm    month likewise; right after h minutes          n nn    minute
///   yy yyyy          year                                           s ss    second
///   am/pm a/p        half of the day, and hours go to 12            z zzz   millisecond
/// Text in single or double quotes and every other character stand for themselves.
std::string FormatDateTime(TDateTime value, std::string_view format);
