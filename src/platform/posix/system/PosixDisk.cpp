#include "platform/posix/system/PosixDisk.h"

#include <fcntl.h>
#include <sys/statvfs.h>

#include "platform/posix/system/PosixErrors.h"

SysResult PosixDisk::GetSpace(std::string_view path, DiskSpace& space) {
  return paths_.OnEntry(path, [&space](const Place& place) {
    const UniqueFd entry(openat(place.Fd(), place.Name(), O_PATH | O_CLOEXEC));
    struct statvfs status = {};
    if (!entry || fstatvfs(entry.Get(), &status) != 0) return LastFailure();
    space.free = uint64_t{status.f_bavail} * status.f_frsize;
    space.total = uint64_t{status.f_blocks} * status.f_frsize;
    return SysResult();
  });
}
