#include "platform/win32/system/Win32Clock.h"

#include "platform/win32/system/Win32Time.h"

double UnixSeconds(const FILETIME& time) {
  constexpr int64_t kEpoch = 116444736000000000;  // 1970-01-01 in units of 100 ns since 1601
  const auto ticks = static_cast<int64_t>(uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
  return static_cast<double>(ticks - kEpoch) / 1e7;
}

double Win32Clock::Seconds() {
  LARGE_INTEGER frequency, count;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&count);
  return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

TDateTime Win32Clock::LocalNow() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  FILETIME time{};
  SystemTimeToFileTime(&now, &time);
  return FromUnixSeconds(UnixSeconds(time));
}
