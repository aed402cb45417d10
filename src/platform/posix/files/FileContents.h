#pragma once

#include <string>
#include <string_view>

#include "base/Win32Error.h"
#include "platform/posix/paths/PosixPaths.h"

/// What Contents::ReadWhole and Contents::Replace do.
SysResult ReadContents(const Place& place, std::string& contents);
SysResult ReplaceContents(PosixPaths& paths, std::string_view path, std::string_view contents);
