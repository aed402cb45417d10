#pragma once

#include <cerrno>
#include <string>

#include "base/Win32Error.h"
#include "platform/ErrorTexts.h"

/// The Windows code for an errno value.
Win32Error FromErrno(int error);

/// The failure that errno tells of.
inline SysResult LastFailure() { return SysResult::Failure(FromErrno(errno)); }

class PosixErrorTexts final : public ErrorTexts {
 public:
  std::string Text(Win32Error code) override;
};
