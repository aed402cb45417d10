#include "platform/posix/files/FileMove.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>

#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/FileCopy.h"
#include "platform/posix/files/FileStamp.h"
#include "platform/posix/files/NewFile.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/files/TemporaryName.h"
#include "platform/posix/files/Transfer.h"
#include "platform/posix/paths/DiskChange.h"
#include "platform/posix/paths/ShownNames.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

bool IsSameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

class Move {
 public:
  Move(PosixPaths& paths, const Place& from, uint32_t flags, const CopyProgress& progress)
      : paths_(paths), from_(from), flags_(flags), progress_(progress) {}

  SysResult To(Place target) {
    const std::string wanted = target.name;
    if (const SysResult found = FindBoth(target); !found) return found;
    if (const SysResult usable = CheckFree(from_, source_); !usable) return usable;
    if (IsSameEntry(target)) {
      // Nothing to move but, perhaps, the case of letters.
      if (wanted == from_.name) return {};
      target.name = DiskName(wanted);
      exists_ = false;
      mustBeFree_ = false;
    }
    if (exists_) {
      if (const SysResult allowed = CheckTarget(); !allowed) return allowed;
      if (const SysResult usable = CheckFree(target, target_.status); !usable) return usable;
      // Two names of one file: the system's own rename would leave both.
      if (IsSameFile(source_, target_.status) && !target_.isLink) return RemoveSource();
    }
    return Rename(target);
  }

 private:
  bool Has(uint32_t flag) const { return (flags_ & flag) != 0; }

  SysResult FindBoth(Place& target) {
    if (fstatat(from_.Fd(), from_.Name(), &source_, AT_SYMLINK_NOFOLLOW) != 0) return LastFailure();
    paths_.SettleTarget(target, &from_);
    exists_ = ReadStatus(target.Fd(), target.Name(), target_);
    return exists_ || errno == ENOENT ? SysResult() : LastFailure();
  }

  bool IsSameEntry(const Place& target) const {
    return target.name == from_.name && target.folder->device == from_.folder->device &&
           target.folder->inode == from_.folder->inode;
  }

  SysResult CheckTarget() const {
    if (!Has(MoveFlag::ReplaceExisting)) return SysResult::Failure(Win32Error::AlreadyExists);
    const bool isLocked = !target_.isLink && IsReadOnly(target_.status);
    const bool isFolder = target_.IsFolder() || S_ISDIR(source_.st_mode);
    return isLocked || isFolder ? SysResult::Failure(Win32Error::AccessDenied) : SysResult();
  }

  DiskChange::Kind Kind() const {
    const bool areFiles = S_ISREG(source_.st_mode) && !(exists_ && target_.isLink);
    return areFiles ? DiskChange::File : DiskChange::Folder;
  }

  SysResult RemoveSource() {
    DiskChange change(paths_, from_, Kind());
    if (unlinkat(from_.Fd(), from_.Name(), 0) != 0) return LastFailure();
    change.Removed(from_.name);
    return {};
  }

  SysResult Rename(const Place& target) {
    DiskChange left(paths_, from_, Kind()), entered(paths_, target, Kind());
    if (!RenameTo(target)) {
      if (errno == EXDEV) return ToOtherVolume(target, entered);
      // The system's word for a folder that would have to go into itself.
      return errno == EINVAL ? SysResult::Failure(Win32Error::SharingViolation) : LastFailure();
    }
    left.Removed(from_.name);
    if (!exists_) entered.Added(target.name);
    paths_.Twins().Arrived(from_, target);
    return {};
  }

  bool RenameTo(const Place& target) const {
    if (!exists_ && mustBeFree_) {
      if (renameat2(from_.Fd(), from_.Name(), target.Fd(), target.Name(), RENAME_NOREPLACE) == 0) return true;
      // Not every file system knows the flag.
      if (errno != EINVAL && errno != ENOSYS) return false;
    }
    return renameat(from_.Fd(), from_.Name(), target.Fd(), target.Name()) == 0;
  }

  SysResult ToOtherVolume(const Place& target, DiskChange& entered) {
    if (!Has(MoveFlag::CopyAllowed)) return SysResult::Failure(Win32Error::NotSameDevice);
    if (S_ISDIR(source_.st_mode)) return SysResult::Failure(Win32Error::AccessDenied);
    // Before anything is replaced by what would then be there twice.
    if (faccessat(from_.Fd(), ".", W_OK | X_OK, AT_EACCESS) != 0) return LastFailure();
    const SysResult made = S_ISLNK(source_.st_mode) ? RemakeLink(target) : CopyFileTo(target);
    if (!made) return made;
    if (!exists_) entered.Added(target.name);
    paths_.Twins().Arrived(from_, target);
    if (Has(MoveFlag::WriteThrough) && !WriteNames(target)) return LastFailure();
    const SysResult same = CheckUnchanged();
    return same ? RemoveSource() : same;
  }

  /// SharingViolation when the source is not what was read: another program works on it.
  SysResult CheckUnchanged() const {
    struct stat now = {};
    if (fstatat(from_.Fd(), from_.Name(), &now, AT_SYMLINK_NOFOLLOW) != 0) return LastFailure();
    return FileStamp::Of(now) == FileStamp::Of(source_) ? SysResult()
                                                        : SysResult::Failure(Win32Error::SharingViolation);
  }

  SysResult CopyFileTo(const Place& target) {
    CopySource source = {};
    if (const SysResult opened = OpenCopySource(paths_, from_, source); !opened) return opened;
    source_ = source.status;
    const int from = source.fd.Get();
    NewFile file(target);
    if (!file.CreateUnseen(0600)) return LastFailure();
    const CopyOptions options = {.progress = progress_};
    if (const SysResult moved = Transfer(from, source.status, file.Fd()).Run(options); !moved) return moved;
    if (!CopyProperties(from, source.status, file.Fd())) return LastFailure();
    const timespec times[] = {source.status.st_atim, source.status.st_mtim};
    if (futimens(file.Fd(), times) != 0 && errno != EOPNOTSUPP) return LastFailure();
    if (Has(MoveFlag::WriteThrough) && fsync(file.Fd()) != 0) return LastFailure();
    if (const SysResult same = CheckUnchanged(); !same) return same;
    return (exists_ ? file.TakePlaceOf(target.name) : file.KeepAs(target.name)) ? SysResult() : LastFailure();
  }

  /// Brings the folder itself to the disk, where the system can.
  static bool WriteNames(const Place& target) {
    const UniqueFd folder(openat(target.Fd(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !folder || fsync(folder.Get()) == 0 || errno == EINVAL;
  }

  SysResult RemakeLink(const Place& target) const {
    char text[PATH_MAX];
    const ssize_t length = readlinkat(from_.Fd(), from_.Name(), text, sizeof text - 1);
    if (length < 0) return LastFailure();
    text[length] = 0;
    const std::string name = exists_ ? TemporaryName() : target.name;
    if (symlinkat(text, target.Fd(), name.c_str()) != 0) return LastFailure();
    const timespec times[] = {source_.st_atim, source_.st_mtim};
    utimensat(target.Fd(), name.c_str(), times, AT_SYMLINK_NOFOLLOW);
    if (!exists_ || renameat(target.Fd(), name.c_str(), target.Fd(), target.Name()) == 0) return {};
    const SysResult failure = LastFailure();
    unlinkat(target.Fd(), name.c_str(), 0);
    return failure;
  }

  PosixPaths& paths_;
  const Place& from_;
  uint32_t flags_;
  const CopyProgress& progress_;
  struct stat source_ = {};
  EntryStatus target_ = {};
  bool exists_ = false;
  bool mustBeFree_ = true;  // not so where the target is the source in other letters
};

}  // namespace

SysResult CheckReplace(const Place& place) {
  EntryStatus entry = {};
  if (const SysResult found = StatusAt(place, entry); !found) return found;
  const bool isRefused = entry.IsFolder() || (!entry.isLink && IsReadOnly(entry.status));
  if (isRefused) return SysResult::Failure(Win32Error::AccessDenied);
  if (faccessat(place.Fd(), ".", W_OK | X_OK, AT_EACCESS) != 0) return LastFailure();
  return entry.isLink ? SysResult() : CheckFree(place, entry.status);
}

SysResult MoveEntry(PosixPaths& paths, std::string_view source, std::string_view target, uint32_t flags,
                    const CopyProgress& progress) {
  Place to = paths.Locate(target);
  return paths.OnEntry(source, [&](const Place& from) {
    if (!to.folder) {
      EntryStatus ignored;
      return ReadStatus(from.Fd(), from.Name(), ignored) ? SysResult::Failure(to.error) : LastFailure();
    }
    return Move(paths, from, flags, progress).To(to);
  });
}
