#pragma once

#include <string_view>

#include "platform/Entries.h"
#include "platform/posix/paths/PosixPaths.h"

/// A regular file that is open for being copied.
struct CopySource {
  Place place;
  UniqueFd fd;
  struct stat status;
  uint32_t attributes;  // hidden, system and archive among them
};

/// Opens a file for being copied, links followed; refused while another holds it exclusively. Anything that
/// is no regular file is refused without being opened.
SysResult OpenCopySource(PosixPaths& paths, const Place& place, CopySource& source);

/// What Entries::Copy does.
SysResult CopyFile(PosixPaths& paths, std::string_view source, std::string_view target,
                   const CopyOptions& options);
