#pragma once

#include <stdexcept>

#include "vekcoreapi_export.h"

/// Base of the errors that host services raise; the message says what was wrong.
class VEK_API EVekError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~EVekError() override;
};

/// A text that cannot be expanded.
class VEK_API EVekExpressionError : public EVekError {
 public:
  using EVekError::EVekError;
  ~EVekExpressionError() override;
};
