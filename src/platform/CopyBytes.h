#pragma once

#include "platform/OpenFile.h"

/// What OpenFile::CopyFrom does where the system has no way of its own.
SysResult CopyBytes(class OpenFile& source, class OpenFile& target, uint64_t most, uint64_t& count);
