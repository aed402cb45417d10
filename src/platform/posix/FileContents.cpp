#include "platform/posix/FileContents.h"

#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <poll.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/xattr.h>
#include <vector>

#include "platform/posix/EntryStatus.h"
#include "platform/posix/PosixErrors.h"

namespace {

/// False when another open holds the file exclusively. Who only looks in passing shares the lock, so that two
/// writers that replace the file do not keep each other out.
bool MayUse(int fd) { return flock(fd, LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK; }

ssize_t ReadSome(int fd, char* buffer, size_t size) {
  ssize_t count;
  do {
    count = read(fd, buffer, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

SysResult ReadToEnd(int fd, size_t expected, std::string& contents) {
  // One byte more than expected tells the end of an unchanged file with the first read.
  constexpr size_t kLeast = 4096;
  contents.clear();
  size_t filled = 0;
  for (size_t room = expected == 0 ? kLeast : expected + 1;; room = contents.size() * 2) {
    contents.resize(room);
    while (filled < room) {
      const ssize_t count = ReadSome(fd, contents.data() + filled, room - filled);
      if (count < 0) return LastFailure();
      filled += static_cast<size_t>(count);
      if (count == 0 || filled == expected) {
        contents.resize(filled);
        return {};
      }
    }
  }
}

/// A file beside the target that takes its place when it is complete, and vanishes otherwise.
class NewFile {
 public:
  explicit NewFile(const Place& target) : folder_(target.folder) {}
  ~NewFile() {
    if (fd_) unlinkat(folder_->fd.Get(), name_.c_str(), 0);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  bool Create(mode_t mode) {
    do {
      uint64_t number = 0;
      if (getrandom(&number, sizeof number, 0) < 0) return false;
      char name[32];
      std::snprintf(name, sizeof name, ".vek-%016llx", static_cast<unsigned long long>(number));
      name_ = name;
      fd_ = UniqueFd(
          openat(folder_->fd.Get(), name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    } while (!fd_ && errno == EEXIST);
    return static_cast<bool>(fd_);
  }

  int Fd() const { return fd_.Get(); }

  bool TakePlaceOf(const std::string& target) {
    const int folder = folder_->fd.Get();
    const bool done = fd_.Close() && renameat(folder, name_.c_str(), folder, target.c_str()) == 0;
    if (!done) {
      const int reason = errno;
      unlinkat(folder, name_.c_str(), 0);
      errno = reason;
    }
    return done;
  }

 private:
  std::shared_ptr<const Folder> folder_;
  std::string name_;
  UniqueFd fd_;
};

/// Attributes of other programs come along where that is allowed; the user's own must.
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
    if (!copied && name.starts_with("user.")) return false;
  }
  return true;
}

/// Owner first: changing it takes bits of the mode away. An ordinary user may keep the group at best.
bool CopyProperties(int from, const struct stat& status, int to) {
  constexpr auto kUnchanged = static_cast<uid_t>(-1);
  [[maybe_unused]] const bool kept =
      fchown(to, status.st_uid, status.st_gid) == 0 || fchown(to, kUnchanged, status.st_gid) == 0;
  return CopyExtendedAttributes(from, to) && fchmod(to, status.st_mode & 07777) == 0;
}

/// Writes beside the target and exchanges the two; `old` is the open target, or nothing where it is new.
SysResult Exchange(PosixPaths& paths, const Place& target, int old, const struct stat& status,
                   std::string_view contents) {
  // The folder must be writable too, since only an exchange of files is one step.
  NameIndex::Change change(paths.Names(), target.Fd());
  NewFile file(target);
  if (!file.Create(old < 0 ? 0666 : 0600) || !WriteAll(file.Fd(), contents)) return LastFailure();
  if (old >= 0 && !CopyProperties(old, status, file.Fd())) return LastFailure();
  if (!file.TakePlaceOf(target.name)) return LastFailure();
  if (old < 0) change.Added(target.name);
  return {};
}

/// A pipe or device takes the bytes itself.
SysResult WriteInto(int fd, std::string_view contents) {
  fcntl(fd, F_SETFL, 0);
  return WriteAll(fd, contents) ? SysResult() : LastFailure();
}

/// Opening for writing is how the system checks that the file may be written; nothing is written to it.
UniqueFd OpenTarget(const Place& place) {
  return UniqueFd(openat(place.Fd(), place.Name(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

/// Moves from a link to what it leads to; false with the reason in errno.
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

}  // namespace

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

SysResult ReadContents(const Place& place, std::string& contents) {
  const UniqueFd fd(openat(place.Fd(), place.Name(), O_RDONLY | O_CLOEXEC));
  struct stat status = {};
  if (!fd || fstat(fd.Get(), &status) != 0) return LastFailure();
  if (!MayUse(fd.Get())) return LastFailure();
  try {
    return ReadToEnd(fd.Get(), S_ISREG(status.st_mode) ? static_cast<size_t>(status.st_size) : 0, contents);
  } catch (const std::exception&) {
    return SysResult::Failure(Win32Error::NotEnoughMemory);
  }
}

SysResult ReplaceContents(PosixPaths& paths, std::string_view path, std::string_view contents) {
  Place place = paths.Locate(path);
  if (!place.folder) return SysResult::Failure(place.error);
  constexpr int kMostLinks = 40;
  UniqueFd old = OpenTarget(place);
  if (!old && errno == ENOENT && paths.OtherCase(place)) old = OpenTarget(place);
  for (int links = 0; !old && errno == ELOOP; ++links) {
    if (links == kMostLinks || !FollowLink(place)) return LastFailure();
    old = OpenTarget(place);
  }
  struct stat status = {};
  if (!old && errno == ENOENT) return Exchange(paths, place, -1, status, contents);
  if (!old || fstat(old.Get(), &status) != 0) return LastFailure();
  if (IsReadOnly(status)) return SysResult::Failure(Win32Error::AccessDenied);
  if (!MayUse(old.Get())) return LastFailure();
  if (!S_ISREG(status.st_mode)) return WriteInto(old.Get(), contents);
  return Exchange(paths, place, old.Get(), status, contents);
}
