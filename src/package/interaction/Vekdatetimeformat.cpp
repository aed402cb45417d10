#include "interaction/Vekdatetimeformat.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace {

constexpr std::array<std::string_view, 7> kDays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                   "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};
constexpr std::string_view kHalves = "am/pm", kHalfLetters = "a/p";
constexpr size_t kShortName = 3;

bool BeginsWith(std::string_view text, std::string_view start) {
  return text.size() >= start.size() && SameText(text.substr(0, start.size()), start);
}

/// Where the text in quotes that starts here ends, its closing quote included where there is one.
size_t QuotedEnd(std::string_view format, size_t start) {
  const size_t end = format.find(format[start], start + 1);
  return end == std::string_view::npos ? format.size() : end + 1;
}

class Formatter {
 public:
  Formatter(TDateTime value, std::string_view format) : parts_(ToParts(value)), format_(format) {}

  std::string Run() {
    hoursGoTo12_ = HasHalves();
    for (size_t i = 0; i < format_.size();) i = Next(i);
    return std::move(text_);
  }

 private:
  bool HasHalves() const {
    for (size_t i = 0; i < format_.size();) {
      const char c = format_[i];
      if (c == '"' || c == '\'') {
        i = QuotedEnd(format_, i);
      } else if (BeginsWith(format_.substr(i), kHalves) || BeginsWith(format_.substr(i), kHalfLetters)) {
        return true;
      } else {
        ++i;
      }
    }
    return false;
  }

  /// Writes what stands at that place of the format, and answers the next one.
  size_t Next(size_t at) {
    const char c = format_[at];
    if (c == '"' || c == '\'') {
      const size_t end = QuotedEnd(format_, at);
      const bool isClosed = end - at > 1 && format_[end - 1] == c;
      text_.append(format_.substr(at + 1, end - at - 1 - (isClosed ? 1 : 0)));
      return end;
    }
    for (std::string_view halves : {kHalves, kHalfLetters}) {
      if (!BeginsWith(format_.substr(at), halves)) continue;
      const std::string_view written = format_.substr(at, halves.size());
      const size_t slash = written.find('/');
      text_.append(parts_.hour < 12 ? written.substr(0, slash) : written.substr(slash + 1));
      return at + halves.size();
    }
    const char letter = static_cast<char>(c | 0x20);
    size_t end = at + 1;
    while (end < format_.size() && (format_[end] | 0x20) == letter) ++end;
    if (Letters(letter, end - at)) return end;
    text_ += c;
    return at + 1;
  }

  /// A run of one letter; false when it asks for nothing.
  bool Letters(char letter, size_t count) {
    const bool isMinute = letter == 'n' || (letter == 'm' && count < 3 && last_ == 'h');
    if (isMinute) return Number('n', parts_.minute, count);
    switch (letter) {
      case 'd':
        return count < 3 ? Number(letter, parts_.day, count) : Name(letter, kDays[parts_.weekday - 1], count);
      case 'm':
        return count < 3 ? Number(letter, parts_.month, count)
                         : Name(letter, kMonths[parts_.month - 1], count);
      case 'y':
        return count < 3 ? Digits(letter, static_cast<unsigned>(parts_.year % 100), 2)
                         : Digits(letter, static_cast<unsigned>(parts_.year), 4);
      case 'h':
        return Number(letter, hoursGoTo12_ ? (parts_.hour + 11) % 12 + 1 : parts_.hour, count);
      case 's':
        return Number(letter, parts_.second, count);
      case 'z':
        return Digits(letter, parts_.millisecond, count < 2 ? 1 : 3);
      default:
        return false;
    }
  }

  bool Number(char letter, unsigned number, size_t count) {
    return Digits(letter, number, std::min<size_t>(count, 2));
  }

  bool Digits(char letter, unsigned number, size_t least) {
    const std::string digits = std::to_string(number);
    text_.append(least - std::min(least, digits.size()), '0').append(digits);
    last_ = letter;
    return true;
  }

  bool Name(char letter, std::string_view name, size_t count) {
    text_.append(count == kShortName ? name.substr(0, kShortName) : name);
    last_ = letter;
    return true;
  }

  const DateTimeParts parts_;
  const std::string_view format_;
  bool hoursGoTo12_ = false;
  char last_ = 0;  // the letter of the run before
  std::string text_;
};

}  // namespace

std::string FormatDateTime(TDateTime value, std::string_view format) {
  return Formatter(value, format).Run();
}
