#pragma once

#include "base/Win32Error.h"

/// Whether an entry that could not be looked at may be there. It counts as there: who takes its name for free
/// would replace it, and who goes on meets the reason.
constexpr bool MayBeThere(Win32Error code) {
  return code == Win32Error::GeneralFailure || code == Win32Error::AccessDenied ||
         code == Win32Error::SharingViolation;
}
