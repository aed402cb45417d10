#pragma once

#include <cstdint>
#include <sys/stat.h>

#include "base/Win32Error.h"

struct Place;

/// What stands under a name in an open folder: a link as what it leads to, a dangling one as itself.
struct EntryStatus {
  struct stat status;
  bool isLink;

  bool IsFolder() const { return S_ISDIR(status.st_mode); }
};

inline bool IsReadOnly(const struct stat& status) {
  return !S_ISLNK(status.st_mode) && (status.st_mode & 0222) == 0;
}

/// False with the reason in errno.
bool ReadStatus(int folder, const char* name, EntryStatus& entry);

/// The same for an entry that was located.
SysResult StatusAt(const Place& place, EntryStatus& entry);

/// The FileAttribute bits of an entry whose status was read; 0 stands for none.
uint32_t AttributesOf(int folder, const char* name, const EntryStatus& entry);

/// Those of them that the status alone tells.
uint32_t StatusAttributes(const EntryStatus& entry);
