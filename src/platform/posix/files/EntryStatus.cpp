#include "platform/posix/files/EntryStatus.h"

#include <fcntl.h>

#include "platform/FileAttributes.h"
#include "platform/posix/files/DosAttributes.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/system/PosixErrors.h"

bool ReadStatus(int folder, const char* name, EntryStatus& entry) {
  if (fstatat(folder, name, &entry.status, AT_SYMLINK_NOFOLLOW) != 0) return false;
  entry.isLink = S_ISLNK(entry.status.st_mode);
  struct stat target = {};
  if (entry.isLink && fstatat(folder, name, &target, 0) == 0) entry.status = target;
  return true;
}

SysResult StatusAt(const Place& place, EntryStatus& entry) {
  return ReadStatus(place.Fd(), place.Name(), entry) ? SysResult() : LastFailure();
}

uint32_t AttributesOf(int folder, const char* name, const EntryStatus& entry) {
  return StoredAttributes(folder, name) | StatusAttributes(entry);
}

uint32_t StatusAttributes(const EntryStatus& entry) {
  uint32_t attributes = 0;
  if (entry.IsFolder()) attributes |= FileAttribute::Directory;
  if (entry.isLink) attributes |= FileAttribute::ReparsePoint;
  if (IsReadOnly(entry.status)) attributes |= FileAttribute::ReadOnly;
  return attributes;
}
