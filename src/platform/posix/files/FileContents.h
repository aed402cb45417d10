#pragma once

#include <string>
#include <string_view>

#include "base/Win32Error.h"
#include "platform/posix/paths/PosixPaths.h"

/// What Contents::ReadWhole does, and what ReadStream does with something that may be no file.
SysResult ReadContents(const Place& place, std::string& contents);
SysResult ReadStream(const Place& place, std::string& contents);

/// What Contents::Replace does at the place of the file itself. Others take their turn (see FolderTurn).
SysResult ReplaceContents(PosixPaths& paths, const Place& place, std::string_view contents);
