#include "platform/win32/system/Win32Clock.h"

#include "platform/win32/system/Win32Time.h"

double Win32Clock::Seconds() {
  LARGE_INTEGER frequency, count;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&count);
  return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

TDateTime Win32Clock::LocalNow() {
  FILETIME now;
  GetSystemTimePreciseAsFileTime(&now);
  return ToLocal(now);
}

TDateTime Win32Clock::UtcNow() {
  FILETIME time;
  GetSystemTimeAsFileTime(&time);
  return FromUnixSeconds(UnixSeconds(time));
}

TDateTime Win32Clock::ToUtc(TDateTime local) { return FromUnixSeconds(UnixSeconds(FromLocal(local))); }
