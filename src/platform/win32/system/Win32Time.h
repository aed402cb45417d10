#pragma once

#include "base/DateTime.h"
#include "platform/win32/system/Win32Api.h"

/// Unix time in seconds.
double UnixSeconds(const FILETIME& time);

/// Year, month, day and so on.
SYSTEMTIME Parts(TDateTime value);

/// Between the system's time and local date and time, by the rules of the day itself, to the millisecond on
/// the way back.
TDateTime ToLocal(const FILETIME& time);
FILETIME FromLocal(TDateTime local);
