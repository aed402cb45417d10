#pragma once

#include <string>
#include <string_view>

#include "base/Win32Error.h"

/// Makes the form of a path that the wide API takes: absolute, in backslashes, and past the old length limit
/// in the form that lifts it. InvalidName for bytes that are no text.
SysResult NativePath(std::string_view path, std::wstring& native);

/// The absolute path without that form: what is shown, and what the current folder is set to.
SysResult AbsolutePath(std::string_view path, std::wstring& absolute);

/// A native path as it is shown.
std::string ShownPath(std::wstring_view native);
