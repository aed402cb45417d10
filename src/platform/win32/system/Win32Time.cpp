#include "platform/win32/system/Win32Time.h"

#include <cmath>
#include <cstdint>

namespace {

constexpr int64_t kEpoch = 116444736000000000;  // 1970-01-01 in units of 100 ns since 1601

FILETIME Ticks(TDateTime value) {
  const int64_t ticks = std::llround(ToUnixSeconds(value) * 1e3) * 10000 + kEpoch;
  return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

}  // namespace

double UnixSeconds(const FILETIME& time) {
  const auto ticks = static_cast<int64_t>(uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
  return static_cast<double>(ticks - kEpoch) / 1e7;
}

TDateTime ToLocal(const FILETIME& time) {
  SYSTEMTIME utc, local;
  FILETIME shifted = time;
  if (FileTimeToSystemTime(&time, &utc) && SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local)) {
    SystemTimeToFileTime(&local, &shifted);
  }
  return FromUnixSeconds(UnixSeconds(shifted));
}

SYSTEMTIME Parts(TDateTime value) {
  const FILETIME time = Ticks(value);
  SYSTEMTIME parts{};
  FileTimeToSystemTime(&time, &parts);
  return parts;
}

FILETIME FromLocal(TDateTime local) {
  FILETIME time = Ticks(local);
  SYSTEMTIME shifted, utc;
  if (FileTimeToSystemTime(&time, &shifted) && TzSpecificLocalTimeToSystemTime(nullptr, &shifted, &utc)) {
    SystemTimeToFileTime(&utc, &time);
  }
  return time;
}
