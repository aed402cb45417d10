#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/DateTime.h"

/// How the user writes dates and times.
class Locale {
 public:
  virtual ~Locale() = default;

  /// The date without the time, in its short form.
  virtual std::string ShortDate(TDateTime local) = 0;

  /// The time of day in its short and in its long form, and what a short date with a long time stands for;
  /// nothing for another text.
  virtual std::string ShortTime(TDateTime local) = 0;
  virtual std::string LongTime(TDateTime local) = 0;
  virtual std::optional<TDateTime> ParseDateTime(std::string_view text) = 0;
};
