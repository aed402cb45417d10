#include "platform/posix/files/OpenedFile.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <vector>

#include "platform/posix/system/PosixErrors.h"

namespace {

/// Attributes of other programs come along where that is allowed; the user's own must, where they can.
bool CopyExtendedAttributes(int from, int to) {
  if (flistxattr(from, nullptr, 0) <= 0) return true;
  std::vector<char> names(XATTR_LIST_MAX), value(XATTR_SIZE_MAX);
  const ssize_t length = flistxattr(from, names.data(), names.size());
  for (ssize_t at = 0; at < length;) {
    const std::string_view name = names.data() + at;
    at += static_cast<ssize_t>(name.size()) + 1;
    const ssize_t size = fgetxattr(from, name.data(), value.data(), value.size());
    if (size < 0) continue;
    const bool copied = fsetxattr(to, name.data(), value.data(), static_cast<size_t>(size), 0) == 0;
    if (!copied && errno != EOPNOTSUPP && name.starts_with("user.")) return false;
  }
  return true;
}

}  // namespace

bool MayUse(int fd) { return flock(fd, LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK; }

SysResult CheckFree(const Place& place, const struct stat& status) {
  if (!S_ISREG(status.st_mode)) return {};
  const UniqueFd file(openat(place.Fd(), place.Name(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  return !file || MayUse(file.Get()) ? SysResult() : LastFailure();
}

UniqueFd OpenTarget(const Place& place) {
  return UniqueFd(openat(place.Fd(), place.Name(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

bool FollowLink(Place& place) {
  char text[PATH_MAX];
  const ssize_t length = readlinkat(place.Fd(), place.Name(), text, sizeof text);
  if (length < 0) return false;
  const std::string target(text, static_cast<size_t>(length));
  const size_t slash = target.rfind('/');
  place.name = slash == std::string::npos ? target : target.substr(slash + 1);
  if (slash == std::string::npos) return true;
  const std::string folder = target.substr(0, slash + 1);
  UniqueFd fd(openat(place.Fd(), folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  struct stat status = {};
  if (!fd || fstat(fd.Get(), &status) != 0) return false;
  place.folder = std::make_shared<Folder>(std::move(fd), folder, status.st_dev, status.st_ino);
  return true;
}

Place FinalPlace(PosixPaths& paths, std::string_view path) {
  Place place = paths.Locate(path);
  if (!place.folder) return place;
  struct stat status = {};
  const auto stands = [&] { return fstatat(place.Fd(), place.Name(), &status, AT_SYMLINK_NOFOLLOW) == 0; };
  if (!stands() && errno == ENOENT && (!paths.SettleTarget(place) || !stands())) return place;
  for (int links = 0; S_ISLNK(status.st_mode) && links < kMostLinks; ++links) {
    if (!FollowLink(place)) return {};
    if (!stands()) break;
  }
  return place;
}

bool CopyProperties(int from, const struct stat& status, int to) {
  constexpr auto kUnchanged = static_cast<uid_t>(-1);
  constexpr mode_t kRunsAsOwner = S_ISUID | S_ISGID;
  // Owner first: changing it takes bits of the mode away. An ordinary user may keep the group at best, and
  // must not lend its own name to another's program.
  mode_t mode = status.st_mode & 07777;
  if (fchown(to, status.st_uid, status.st_gid) != 0) {
    mode &= ~kRunsAsOwner;
    [[maybe_unused]] const int ignored = fchown(to, kUnchanged, status.st_gid);
  }
  return CopyExtendedAttributes(from, to) && fchmod(to, mode) == 0;
}

ssize_t ReadSome(int fd, char* buffer, size_t size) {
  ssize_t count;
  do {
    count = read(fd, buffer, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(fd, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<size_t>(count));
    } else if (errno == EAGAIN) {
      // Whoever shares the other end made it non-blocking.
      pollfd ready = {fd, POLLOUT, 0};
      poll(&ready, 1, -1);
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}
