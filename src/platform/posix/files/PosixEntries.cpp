#include "platform/posix/files/PosixEntries.h"

#include <fcntl.h>

#include "base/WindowsPath.h"
#include "platform/FileAttributes.h"
#include "platform/FileNames.h"
#include "platform/Presence.h"
#include "platform/posix/files/DosAttributes.h"
#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/FileCopy.h"
#include "platform/posix/files/FileMove.h"
#include "platform/posix/files/PosixOpenFile.h"
#include "platform/posix/paths/DiskChange.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

/// Read-only is the lack of every write bit; giving it up gives the owner one.
mode_t WithReadOnly(mode_t mode, bool readOnly) {
  if (readOnly) return mode & ~mode_t{0222};
  return (mode & 0222) == 0 ? mode | 0200 : mode;
}

/// Changes the mode of one entry back and forth; remembers what it is.
class ModeChange {
 public:
  ModeChange(const Place& place, mode_t mode) : place_(place), mode_(mode & 07777) {}

  bool To(mode_t wanted) {
    if (mode_ == wanted) return true;
    if (fchmodat(place_.Fd(), place_.Name(), wanted, 0) != 0) return false;
    mode_ = wanted;
    return true;
  }

 private:
  const Place& place_;
  mode_t mode_;
};

constexpr uint32_t kStored = FileAttribute::Hidden | FileAttribute::System | FileAttribute::Archive;

SysResult WriteAttributes(const Place& place, const SeenEntry& present, uint32_t attributes) {
  const uint32_t changed = present.attributes ^ attributes;
  // A link has no attributes of its own, and what it leads to is not what was named.
  if (present.entry.isLink) return SysResult::Failure(Win32Error::NotSupported);

  const mode_t mode = present.entry.status.st_mode & 07777;
  ModeChange change(place, mode);
  if ((changed & kStored) != 0) {
    // The system stores attributes only in what may be written.
    if (!change.To(WithReadOnly(mode, false))) return LastFailure();
    if (!StoreAttributes(place.Fd(), place.Name(), attributes)) {
      const SysResult failure = LastFailure();
      change.To(mode);
      return failure;
    }
  }
  return change.To(WithReadOnly(mode, (attributes & FileAttribute::ReadOnly) != 0)) ? SysResult()
                                                                                    : LastFailure();
}

}  // namespace

bool PosixEntries::FileExists(std::string_view path) {
  if (EndsInPathDelimiter(path)) return false;
  EntryStatus entry = {};
  const SysResult looked = paths_.OnEntry(path, [&](const Place& place) { return StatusAt(place, entry); });
  return looked ? !entry.IsFolder() : MayBeThere(looked.code);
}

bool PosixEntries::EntryExists(std::string_view path) {
  const Place place = paths_.Locate(path);
  struct stat status = {};
  return place.folder && fstatat(place.Fd(), place.Name(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

bool PosixEntries::TargetExists(std::string_view source, std::string_view target) {
  if (EndsInPathDelimiter(target)) return false;
  Place to = paths_.Locate(target);
  if (!to.folder) return false;
  EntryStatus entry = {};
  if (ReadStatus(to.Fd(), to.Name(), entry)) return !entry.IsFolder();
  const Place from = paths_.Locate(source);
  const bool isThere = paths_.SettleTarget(to, from.folder ? &from : nullptr);
  return isThere && ReadStatus(to.Fd(), to.Name(), entry) && !entry.IsFolder();
}

SysResult PosixEntries::CheckReplace(std::string_view path) {
  return paths_.OnEntry(path, [](const Place& place) { return ::CheckReplace(place); });
}

std::optional<EntryIdentity> PosixEntries::Identity(std::string_view path) {
  struct stat status = {};
  const auto look = [&](const Place& place) {
    return fstatat(place.Fd(), place.Name(), &status, 0) == 0 ? SysResult() : LastFailure();
  };
  if (!paths_.OnEntry(path, look)) return {};
  return EntryIdentity{status.st_dev, status.st_ino};
}

SysResult PosixEntries::GetSize(std::string_view path, uint64_t& size) {
  return paths_.OnEntry(path, [&](const Place& place) {
    EntryStatus entry = {};
    const SysResult found = StatusAt(place, entry);
    size = S_ISREG(entry.status.st_mode) ? static_cast<uint64_t>(entry.status.st_size) : 0;
    return found;
  });
}

SysResult PosixEntries::GetAttributes(std::string_view path, uint32_t& attributes) {
  return paths_.OnEntry(path, [&](const Place& place) {
    EntryStatus entry = {};
    if (const SysResult found = StatusAt(place, entry); !found) return found;
    attributes = AttributesOf(place.Fd(), place.Name(), entry);
    if (attributes == 0) attributes = FileAttribute::Normal;
    return SysResult();
  });
}

SysResult PosixEntries::SetAttributes(std::string_view path, uint32_t attributes) {
  return paths_.OnEntry(path, [&](const Place& place) {
    auto present = paths_.Recent().Find(*place.folder, place.name);
    if (!present) {
      EntryStatus entry = {};
      if (const SysResult found = StatusAt(place, entry); !found) return found;
      present = {entry, ::AttributesOf(place.Fd(), place.Name(), entry)};
    }
    if (((present->attributes ^ attributes) & (kStored | FileAttribute::ReadOnly)) == 0) return SysResult();
    const DiskChange change(paths_, place, DiskChange::Attributes);
    return WriteAttributes(place, *present, attributes);
  });
}

SysResult PosixEntries::ChangeLastWrite(std::string_view path, const LastWriteChange& change) {
  return paths_.OnEntry(path, [&](const Place& place) { return ChangeLastWriteAt(place, change); });
}

SysResult PosixEntries::Delete(std::string_view path) {
  return paths_.OnEntry(path, [this](const Place& place) { return DeleteAt(place); });
}

SysResult PosixEntries::DeleteAt(const Place& place) {
  EntryStatus entry = {};
  if (const auto seen = paths_.Recent().Find(*place.folder, place.name)) {
    entry = seen->entry;
  } else if (const SysResult found = StatusAt(place, entry); !found) {
    return found;
  }
  if (!entry.isLink && (entry.IsFolder() || IsReadOnly(entry.status))) {
    return SysResult::Failure(Win32Error::AccessDenied);
  }
  DiskChange change(paths_, place, entry.isLink ? DiskChange::Folder : DiskChange::File);
  if (unlinkat(place.Fd(), place.Name(), 0) != 0) return LastFailure();
  change.Removed(place.name);
  return {};
}

SysResult PosixEntries::Copy(std::string_view source, std::string_view target, const CopyOptions& options) {
  const SysResult named = CheckFileNames(folders_, source, target);
  return named ? CopyFile(paths_, source, target, options) : named;
}

SysResult PosixEntries::Move(std::string_view source, std::string_view target, uint32_t flags,
                             const CopyProgress& progress) {
  const SysResult named = CheckMoveNames(folders_, source, target);
  return named ? MoveEntry(paths_, source, target, flags, progress) : named;
}
