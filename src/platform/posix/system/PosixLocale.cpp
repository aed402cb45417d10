#include "platform/posix/system/PosixLocale.h"

#include <clocale>
#include <cmath>
#include <ctime>

namespace {

/// The user's locale for dates and times; the program as a whole stays out of it.
class UsersLocale {
 public:
  UsersLocale() : locale_(newlocale(LC_TIME_MASK, "", nullptr)) {
    if (locale_ == nullptr) locale_ = newlocale(LC_TIME_MASK, "C", nullptr);
  }
  ~UsersLocale() { freelocale(locale_); }
  UsersLocale(const UsersLocale&) = delete;
  UsersLocale& operator=(const UsersLocale&) = delete;
  locale_t Get() const { return locale_; }

 private:
  locale_t locale_;
};

std::string Formatted(const char* format, TDateTime local) {
  const auto asUtc = static_cast<time_t>(std::floor(ToUnixSeconds(local)));
  std::tm parts = {};
  gmtime_r(&asUtc, &parts);
  const UsersLocale users;
  char text[64];
  return {text, strftime_l(text, sizeof text, format, &parts, users.Get())};
}

}  // namespace

std::string PosixLocale::ShortDate(TDateTime local) { return Formatted("%x", local); }
std::string PosixLocale::ShortTime(TDateTime local) { return Formatted("%H:%M", local); }
std::string PosixLocale::LongTime(TDateTime local) { return Formatted("%X", local); }

std::optional<TDateTime> PosixLocale::ParseDateTime(std::string_view text) {
  const UsersLocale users;
  std::tm parts = {};
  const std::string input(text);
  const char* end = strptime_l(input.c_str(), "%x %X", &parts, users.Get());
  if (end == nullptr || *end != '\0') return {};
  return FromUnixSeconds(static_cast<double>(timegm(&parts)));
}
