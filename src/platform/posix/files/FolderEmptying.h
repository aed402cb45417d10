#pragma once

#include "platform/Folders.h"
#include "platform/posix/paths/PosixPaths.h"

/// Folders::Empty for a folder that was located.
SysResult EmptyFolder(const Place& place, const EmptyingOptions& options);
