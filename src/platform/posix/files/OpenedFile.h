#pragma once

#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>

#include "base/Win32Error.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/system/UniqueFd.h"

/// What reading, replacing, copying and moving files have in common. Operations that answer false leave the
/// reason in errno.

/// How many links are followed one after another.
inline constexpr int kMostLinks = 40;

/// False when another open holds the file exclusively. Who only looks in passing shares the lock, so that two
/// writers that replace the file do not keep each other out.
bool MayUse(int fd);

/// SharingViolation when the file at the place is held so; who may not read it cannot tell.
SysResult CheckFree(const Place& place, const struct stat& status);

/// Opening for writing is how the system checks that the file may be written; nothing is written to it.
UniqueFd OpenTarget(const Place& place);

/// Moves from a link to what it leads to.
bool FollowLink(Place& place);

/// Where the file itself stands that a path leads to, links followed, or where a new one would; without a
/// folder as Place says.
Place FinalPlace(PosixPaths& paths, std::string_view path);

/// Gives an open file the owner, the mode and the extended attributes of another, as far as that is allowed
/// and its file system has room for them.
bool CopyProperties(int from, const struct stat& status, int to);

/// Reads what is there, at most `size` bytes; 0 at the end, -1 for an error.
ssize_t ReadSome(int fd, char* buffer, size_t size);

/// Writes all bytes.
bool WriteAll(int fd, std::string_view bytes);
