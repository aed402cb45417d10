#include "platform/posix/files/FolderTurn.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace {

// Ten seconds in all: a turn takes milliseconds.
constexpr int kMostLooks = 5000;
constexpr auto kBetweenLooks = std::chrono::milliseconds(2);

}  // namespace

FolderTurn::FolderTurn(const Place& place) {
  if (!place.folder) return;
  folder_ = UniqueFd(openat(place.Fd(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  for (int looks = 0; folder_ && flock(folder_.Get(), LOCK_EX | LOCK_NB) != 0; ++looks) {
    if (errno != EINTR && errno != EWOULDBLOCK) return;
    if (looks == kMostLooks) {
      result_ = SysResult::Failure(Win32Error::LockViolation);
      return;
    }
    std::this_thread::sleep_for(kBetweenLooks);
  }
}
