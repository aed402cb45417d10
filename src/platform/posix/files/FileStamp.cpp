#include "platform/posix/files/FileStamp.h"

#include <algorithm>
#include <ctime>
#include <tuple>

#include "platform/posix/system/LocalTime.h"

namespace {

// Longer than the steps in which file systems count time.
constexpr double kTimeStep = 0.02;

}  // namespace

FileStamp FileStamp::Of(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
}

bool FileStamp::operator==(const FileStamp& other) const {
  const auto parts = [](const FileStamp& s) {
    return std::tie(s.inode, s.device, s.size, s.written.tv_sec, s.written.tv_nsec, s.changed.tv_sec,
                    s.changed.tv_nsec);
  };
  return parts(*this) == parts(other);
}

bool FileStamp::TellsOfChanges(const struct stat& status) {
  timespec now = {};
  clock_gettime(CLOCK_REALTIME, &now);
  const double last = std::max(ToSeconds(status.st_mtim), ToSeconds(status.st_ctim));
  return S_ISREG(status.st_mode) && ToSeconds(now) - last > kTimeStep;
}
