#pragma once

#include <string_view>

#include "platform/Entries.h"
#include "platform/posix/paths/PosixPaths.h"

/// What Entries::Move does.
SysResult MoveEntry(PosixPaths& paths, std::string_view source, std::string_view target, uint32_t flags,
                    const CopyProgress& progress);

/// What Entries::CheckReplace does for an entry that was located.
SysResult CheckReplace(const Place& place);
