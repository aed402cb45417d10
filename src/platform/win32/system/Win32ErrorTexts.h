#pragma once

#include "platform/ErrorTexts.h"

class Win32ErrorTexts final : public ErrorTexts {
 public:
  std::string Text(Win32Error code) override;
};
