#include "platform/win32/system/Win32Locale.h"

#include "platform/win32/system/Win32Text.h"
#include "platform/win32/system/Win32Time.h"

// After the system's own header, which it needs.
#include <oleauto.h>

namespace {

std::string FormattedTime(DWORD flags, TDateTime local) {
  const SYSTEMTIME time = Parts(local);
  wchar_t text[128] = L"";
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, flags, &time, nullptr, text, ARRAYSIZE(text));
  return FromWide(text);
}

}  // namespace

std::string Win32Locale::ShortDate(TDateTime local) {
  const SYSTEMTIME date = Parts(local);
  wchar_t text[128] = L"";
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &date, nullptr, text, ARRAYSIZE(text), nullptr);
  return FromWide(text);
}

std::string Win32Locale::ShortTime(TDateTime local) { return FormattedTime(TIME_NOSECONDS, local); }
std::string Win32Locale::LongTime(TDateTime local) { return FormattedTime(0, local); }

std::optional<TDateTime> Win32Locale::ParseDateTime(std::string_view text) {
  auto wide = ToWide(text);
  TDateTime result;
  if (!wide || FAILED(VarDateFromStr(wide->data(), LOCALE_USER_DEFAULT, 0, &result.days))) return {};
  return result;
}
