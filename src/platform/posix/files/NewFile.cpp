#include "platform/posix/files/NewFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/random.h>

std::string TemporaryName() {
  uint64_t number = 0;
  if (getrandom(&number, sizeof number, 0) < 0) return {};
  char name[32];
  return {name, static_cast<size_t>(std::snprintf(name, sizeof name, ".vek-%016llx",
                                                  static_cast<unsigned long long>(number)))};
}

namespace {

std::string PathOf(const UniqueFd& file) { return "/proc/self/fd/" + std::to_string(file.Get()); }

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

}  // namespace

NewFile::~NewFile() {
  if (fd_ && !name_.empty()) Remove();
}

bool NewFile::CreateAs(const std::string& name, mode_t mode) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  name_ = name;
  fd_ = UniqueFd(openat(folder_->fd.Get(), name.c_str(), kFlags, mode));
  return static_cast<bool>(fd_);
}

bool NewFile::CreateBeside(mode_t mode) {
  return UnderTemporaryName([&](const std::string& name) { return CreateAs(name, mode); });
}

bool NewFile::CreateUnseen(mode_t mode) {
  fd_ = UniqueFd(openat(folder_->fd.Get(), ".", O_WRONLY | O_TMPFILE | O_CLOEXEC, mode));
  // Its number in the system's list of open files is all that it can be given a name by.
  const bool canBeNamed = fd_ && access(PathOf(fd_).c_str(), F_OK) == 0;
  return canBeNamed || CreateBeside(mode);
}

bool NewFile::Keep() {
  if (fd_.Close()) return true;
  Remove();
  return false;
}

bool NewFile::KeepAs(const std::string& name) {
  if (name_.empty()) return Link(name) && Keep();
  return Keep() && Rename(name, RENAME_NOREPLACE);
}

bool NewFile::TakePlaceOf(const std::string& target) {
  const auto link = [this](const std::string& name) { return Link(name); };
  if (name_.empty() && !UnderTemporaryName(link)) return false;
  return Keep() && Rename(target, 0);
}

bool NewFile::Link(const std::string& name) {
  if (linkat(AT_FDCWD, PathOf(fd_).c_str(), folder_->fd.Get(), name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
    return false;
  }
  name_ = name;
  return true;
}

bool NewFile::Rename(const std::string& name, unsigned flags) {
  const int folder = folder_->fd.Get();
  if (renameat2(folder, name_.c_str(), folder, name.c_str(), flags) == 0) return true;
  // Not every file system knows the flags; a link never takes another's place.
  const bool unknown = flags != 0 && (errno == EINVAL || errno == ENOSYS);
  const bool linked = unknown && linkat(folder, name_.c_str(), folder, name.c_str(), 0) == 0;
  Remove();
  return linked;
}

/// Leaves errno alone.
void NewFile::Remove() const {
  const int reason = errno;
  unlinkat(folder_->fd.Get(), name_.c_str(), 0);
  errno = reason;
}
