#pragma once

#include <memory>
#include <string_view>
#include <sys/stat.h>

#include "platform/Contents.h"
#include "platform/posix/files/NewFile.h"
#include "platform/posix/paths/DiskChange.h"

/// A file whose contents are to be exchanged.
struct RewriteTarget {
  Place place;
  UniqueFd old;  // nothing: there is none yet
  struct stat status = {};

  /// Of what is to take its place: nobody else's business before it has the old one's.
  mode_t ModeUntilDone() const { return old ? 0600 : 0666; }
};

/// Finds it at the place of the file itself, refusing what is no file, one that is read-only and one that
/// another holds exclusively.
SysResult FindRewriteTarget(const Place& place, RewriteTarget& target);

/// The new file gets the properties of the old one, and then its name.
SysResult TakePlace(NewFile& file, const RewriteTarget& target, DiskChange& change);

/// What Contents::Rewrite does.
SysResult BeginRewrite(PosixPaths& paths, std::string_view path, std::unique_ptr<NewContents>& contents);
