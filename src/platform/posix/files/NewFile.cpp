#include "platform/posix/files/NewFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>

#include "platform/posix/files/TemporaryName.h"

namespace {

/// Another name of an open file: its number in the system's list of open files.
std::string PathOf(int file) { return "/proc/self/fd/" + std::to_string(file); }

// Whether the system links a file by its descriptor alone. Older ones want a privilege for that.
std::atomic<bool> linksByDescriptor = false;

/// Runs `make(name)` until the name is free.
template <class Make>
bool UnderTemporaryName(Make make) {
  for (;;) {
    const std::string name = TemporaryName();
    if (name.empty()) return false;
    if (make(name)) return true;
    if (errno != EEXIST) return false;
  }
}

/// Marks the file as one that is being written; false when it was taken for abandoned just before.
bool Hold(int file) {
  struct stat status = {};
  flock(file, LOCK_SH | LOCK_NB);
  return fstat(file, &status) != 0 || status.st_nlink > 0;
}

}  // namespace

/// Leaves errno alone.
NewFile::~NewFile() {
  if (name_.empty()) return;
  const int reason = errno;
  unlinkat(folder_->fd.Get(), name_.c_str(), 0);
  errno = reason;
}

bool NewFile::CreateUnseen(mode_t mode) {
  fd_ = UniqueFd(openat(folder_->fd.Get(), ".", O_WRONLY | O_TMPFILE | O_CLOEXEC, mode));
  const bool canBeNamed = fd_ && (linksByDescriptor || access(PathOf(fd_.Get()).c_str(), F_OK) == 0);
  return canBeNamed || CreateBeside(mode);
}

bool NewFile::CreateBeside(mode_t mode) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  do {
    const auto make = [&](const std::string& name) {
      fd_ = UniqueFd(openat(folder_->fd.Get(), name.c_str(), kFlags, mode));
      if (fd_) name_ = name;
      return static_cast<bool>(fd_);
    };
    if (!UnderTemporaryName(make)) return false;
  } while (!Hold(fd_.Get()));
  return true;
}

bool NewFile::KeepAs(const std::string& name) {
  if (!name_.empty()) return Finish() && RenameToFree(name);
  if (!Link(name.c_str())) return false;
  if (fd_.Close()) return true;
  name_ = name;
  return false;
}

bool NewFile::TakePlaceOf(const std::string& target) {
  if (name_.empty() && !LinkBeside()) return false;
  const int folder = folder_->fd.Get();
  if (!Finish() || renameat(folder, name_.c_str(), folder, target.c_str()) != 0) return false;
  name_.clear();
  return true;
}

bool NewFile::Link(const char* name) {
  const int folder = folder_->fd.Get();
  if (linkat(fd_.Get(), "", folder, name, AT_EMPTY_PATH) == 0) return linksByDescriptor = true;
  if (errno == EEXIST || linksByDescriptor) return false;
  return linkat(AT_FDCWD, PathOf(fd_.Get()).c_str(), folder, name, AT_SYMLINK_FOLLOW) == 0;
}

bool NewFile::LinkBeside() {
  Hold(fd_.Get());
  return UnderTemporaryName([this](const std::string& name) {
    if (!Link(name.c_str())) return false;
    name_ = name;
    return true;
  });
}

/// Closing is when some file systems tell that what was written did not arrive. The lock goes on.
bool NewFile::Finish() {
  if (!fd_) return true;
  held_ = UniqueFd(fcntl(fd_.Get(), F_DUPFD_CLOEXEC, 0));
  return fd_.Close();
}

bool NewFile::RenameToFree(const std::string& name) {
  const int folder = folder_->fd.Get();
  if (renameat2(folder, name_.c_str(), folder, name.c_str(), RENAME_NOREPLACE) == 0) {
    name_.clear();
    return true;
  }
  // Not every file system knows the flag; a link never takes another's place, and the old name goes by
  // itself.
  const bool isUnknown = errno == EINVAL || errno == ENOSYS;
  return isUnknown && linkat(folder, name_.c_str(), folder, name.c_str(), 0) == 0;
}
