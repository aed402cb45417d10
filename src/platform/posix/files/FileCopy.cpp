#include "platform/posix/files/FileCopy.h"

#include <fcntl.h>

#include "platform/FileAttributes.h"
#include "platform/posix/files/DosAttributes.h"
#include "platform/posix/files/NewFile.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/files/Transfer.h"
#include "platform/posix/paths/DiskChange.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

constexpr mode_t kOwnerWrites = 0200, kAllWrite = 0222;

/// What of this kind is not copied, and why.
SysResult CheckKind(const struct stat& status) {
  if (S_ISREG(status.st_mode)) return {};
  if (S_ISLNK(status.st_mode)) return SysResult::Failure(Win32Error::FileNotFound);  // leads nowhere
  return SysResult::Failure(S_ISDIR(status.st_mode) ? Win32Error::AccessDenied : Win32Error::NotSupported);
}

/// Stores the source's attributes with a copy called `name`. A file system that has no room for them does not
/// keep anyone from copying.
bool CopyAttributes(const CopySource& source, int to, const std::string& name) {
  return StoreOpenAttributes(to, name, source.attributes) || errno == EOPNOTSUPP;
}

bool CopyLastWrite(const CopySource& source, int to) {
  const timespec times[] = {{0, UTIME_OMIT}, source.status.st_mtim};
  return futimens(to, times) == 0 || errno == EOPNOTSUPP;
}

class Copy {
 public:
  Copy(PosixPaths& paths, const CopySource& source, const CopyOptions& options)
      : paths_(paths), source_(source), options_(options) {}

  SysResult To(Place target) {
    bool mayExist = options_.targetAsWritten ? paths_.SettleAsWritten(target)
                                             : paths_.SettleTarget(target, &source_.place);
    for (int links = 0; links <= kMostLinks; ++links) {
      struct stat status = {};
      if (mayExist && fstatat(target.Fd(), target.Name(), &status, AT_SYMLINK_NOFOLLOW) == 0) {
        if (options_.failIfExists) return SysResult::Failure(Win32Error::FileExists);
        if (!S_ISLNK(status.st_mode)) return Arrived(Replace(target, status), target);
        if (!FollowLink(target)) return NoFolder();
        continue;
      }
      if (mayExist && errno != ENOENT) return LastFailure();
      const SysResult created = Create(target, mayExist);
      if (!mayExist) return Arrived(created, target);
    }
    return SysResult::Failure(Win32Error::CantResolveFilename);
  }

 private:
  SysResult Arrived(SysResult copied, const Place& target) const {
    if (copied) paths_.Twins().Arrived(source_.place, target);
    return copied;
  }

  /// Makes the target, or says that another was quicker.
  SysResult Create(const Place& target, bool& exists) {
    constexpr uint32_t kStored = FileAttribute::Hidden | FileAttribute::System | FileAttribute::Archive;
    const bool stores = ((source_.attributes ^ ImpliedAttributes(target.name)) & kStored) != 0;
    const mode_t mode = source_.status.st_mode & 0777;
    // The system stores attributes only in what may be written.
    const mode_t first = stores ? mode | kOwnerWrites : mode;
    exists = false;
    DiskChange change(paths_, target, DiskChange::File);
    NewFile file(target);
    if (!file.CreateUnseen(first)) return NoFolder();
    if (const SysResult moved = Transfer(source_.fd.Get(), source_.status, file.Fd()).Run(options_); !moved) {
      return moved;
    }
    if (stores && !CopyAttributes(source_, file.Fd(), target.name)) return LastFailure();
    if (stores && (mode & kOwnerWrites) == 0 && !Withdraw(file.Fd(), kOwnerWrites)) return LastFailure();
    if (!CopyLastWrite(source_, file.Fd())) return LastFailure();
    if (!file.KeepAs(target.name)) {
      exists = errno == EEXIST && lseek(source_.fd.Get(), 0, SEEK_SET) == 0;
      return LastFailure();
    }
    change.Added(target.name);
    return {};
  }

  /// Writes beside a target that exists, and exchanges the two. The target keeps who owns it and who may use
  /// it; all else is the source's.
  SysResult Replace(const Place& target, const struct stat& status) {
    if (const SysResult allowed = CheckTarget(target, status); !allowed) return allowed;
    const UniqueFd old = OpenTarget(target);
    if (!old || !MayUse(old.Get())) return LastFailure();
    DiskChange change(paths_, target, DiskChange::File);
    NewFile file(target);
    const bool isLarge = source_.status.st_size >= kLargeFile;
    if (!(isLarge ? file.CreateUnseen(0600) : file.CreateBeside(0600))) return LastFailure();
    if (const SysResult moved = Transfer(source_.fd.Get(), source_.status, file.Fd()).Run(options_); !moved) {
      return moved;
    }
    if (!CopyProperties(old.Get(), status, file.Fd())) return LastFailure();
    if (!CopyAttributes(source_, file.Fd(), target.name)) return LastFailure();
    if (IsReadOnly(source_.status) && !Withdraw(file.Fd(), kAllWrite)) return LastFailure();
    if (!CopyLastWrite(source_, file.Fd())) return LastFailure();
    return file.TakePlaceOf(target.name) ? SysResult() : LastFailure();
  }

  SysResult CheckTarget(const Place& target, const struct stat& status) const {
    constexpr uint32_t kMustAgree = FileAttribute::Hidden | FileAttribute::System;
    if (status.st_dev == source_.status.st_dev && status.st_ino == source_.status.st_ino) {
      return SysResult::Failure(Win32Error::SharingViolation);
    }
    if (const SysResult kind = CheckKind(status); !kind) return kind;
    const uint32_t missing = StoredAttributes(target.Fd(), target.Name()) & ~source_.attributes & kMustAgree;
    return IsReadOnly(status) || missing != 0 ? SysResult::Failure(Win32Error::AccessDenied) : SysResult();
  }

  /// A target that is missing is none; its folder must be.
  static SysResult NoFolder() {
    return errno == ENOENT ? SysResult::Failure(Win32Error::PathNotFound) : LastFailure();
  }

  static bool Withdraw(int fd, mode_t bits) {
    struct stat status = {};
    return fstat(fd, &status) == 0 && fchmod(fd, status.st_mode & 07777 & ~bits) == 0;
  }

  PosixPaths& paths_;
  const CopySource& source_;
  const CopyOptions& options_;
};

}  // namespace

SysResult OpenCopySource(PosixPaths& paths, const Place& place, CopySource& source) {
  const auto seen = paths.Recent().Find(*place.folder, place.name);
  if (seen) {
    source.status = seen->entry.status;
  } else if (fstatat(place.Fd(), place.Name(), &source.status, 0) != 0) {
    return LastFailure();
  }
  // Before anything is opened: a pipe waits for its other end, and a device may start.
  if (const SysResult kind = CheckKind(source.status); !kind) return kind;
  source.fd = UniqueFd(openat(place.Fd(), place.Name(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!source.fd || fstat(source.fd.Get(), &source.status) != 0) return LastFailure();
  if (const SysResult kind = CheckKind(source.status); !kind) return kind;
  if (!MayUse(source.fd.Get())) return LastFailure();
  source.place = place;
  source.attributes = seen ? seen->attributes : OpenAttributes(source.fd.Get(), place.name);
  return {};
}

SysResult CopyFile(PosixPaths& paths, std::string_view source, std::string_view target,
                   const CopyOptions& options) {
  CopySource from = {};
  const SysResult opened =
      paths.OnEntry(source, [&](const Place& place) { return OpenCopySource(paths, place, from); });
  if (!opened) return opened;
  Place to = paths.Locate(target);
  if (!to.folder) return SysResult::Failure(to.error);
  return Copy(paths, from, options).To(std::move(to));
}
