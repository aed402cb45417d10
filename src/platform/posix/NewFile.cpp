#include "platform/posix/NewFile.h"

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

NewFile::~NewFile() {
  if (fd_) unlinkat(folder_->fd.Get(), name_.c_str(), 0);
}

bool NewFile::CreateAs(const std::string& name, mode_t mode) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  name_ = name;
  fd_ = UniqueFd(openat(folder_->fd.Get(), name.c_str(), kFlags, mode));
  return static_cast<bool>(fd_);
}

bool NewFile::CreateBeside(mode_t mode) {
  for (;;) {
    const std::string name = TemporaryName();
    if (name.empty()) return false;
    if (CreateAs(name, mode)) return true;
    if (errno != EEXIST) return false;
  }
}

bool NewFile::Keep() {
  if (fd_.Close()) return true;
  const int reason = errno;
  unlinkat(folder_->fd.Get(), name_.c_str(), 0);
  errno = reason;
  return false;
}

bool NewFile::TakePlaceOf(const std::string& target) {
  if (!Keep()) return false;
  const int folder = folder_->fd.Get();
  if (renameat(folder, name_.c_str(), folder, target.c_str()) == 0) return true;
  const int reason = errno;
  unlinkat(folder, name_.c_str(), 0);
  errno = reason;
  return false;
}
