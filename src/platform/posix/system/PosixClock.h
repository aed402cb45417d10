#pragma once

#include "platform/Clock.h"

class PosixClock final : public Clock {
 public:
  double Seconds() override;
  TDateTime LocalNow() override;
  TDateTime UtcNow() override;
  TDateTime ToUtc(TDateTime local) override;
};
