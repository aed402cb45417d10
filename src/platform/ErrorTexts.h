#pragma once

#include <string>

#include "base/Win32Error.h"

class ErrorTexts {
 public:
  virtual ~ErrorTexts() = default;

  /// The system's message for an error code, without a trailing line break.
  virtual std::string Text(Win32Error code) = 0;
};
