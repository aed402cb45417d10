#pragma once

#include "platform/Clock.h"

class Win32Clock final : public Clock {
 public:
  double Seconds() override;
  TDateTime LocalNow() override;
  std::string ShortDate(TDateTime local) override;
  TDateTime UtcNow() override;
  TDateTime ToUtc(TDateTime local) override;
  std::string ShortTime(TDateTime local) override;
  std::string LongTime(TDateTime local) override;
  std::optional<TDateTime> ParseDateTime(std::string_view text) override;
};
