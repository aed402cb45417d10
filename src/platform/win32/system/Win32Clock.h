#pragma once

#include "platform/Clock.h"

class Win32Clock final : public Clock {
 public:
  double Seconds() override;
  TDateTime LocalNow() override;
  TDateTime UtcNow() override;
  TDateTime ToUtc(TDateTime local) override;
};
