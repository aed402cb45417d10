#pragma once

#include <memory>

#include "platform/Entries.h"
#include "platform/OpenFile.h"
#include "platform/posix/paths/PosixPaths.h"

/// What Contents::Open does for a file that is there, and for one that is to be made: a link that leads to
/// nothing is made to lead to it.
SysResult OpenExisting(const Place& place, OpenMode mode, ShareMode share, std::unique_ptr<OpenFile>& file);
SysResult CreateAndOpen(const Place& place, ShareMode share, std::unique_ptr<OpenFile>& file);

/// A file that is open already.
std::unique_ptr<OpenFile> TakeOpen(UniqueFd fd);
/// Entries::ChangeLastWrite for a file that was located.
SysResult ChangeLastWriteAt(const Place& place, const LastWriteChange& change);
