#pragma once

#include "platform/Locale.h"

class Win32Locale final : public Locale {
 public:
  std::string ShortDate(TDateTime local) override;
  std::string ShortTime(TDateTime local) override;
  std::string LongTime(TDateTime local) override;
  std::optional<TDateTime> ParseDateTime(std::string_view text) override;
};
