#include "platform/posix/PosixFiles.h"

#include <fcntl.h>

#include "base/WindowsPath.h"
#include "platform/FileAttributes.h"
#include "platform/posix/DosAttributes.h"
#include "platform/posix/EntryStatus.h"
#include "platform/posix/FileContents.h"
#include "platform/posix/PosixErrors.h"

namespace {

SysResult StatusAt(const Place& place, EntryStatus& entry) {
  return ReadStatus(place.Fd(), place.Name(), entry) ? SysResult() : LastFailure();
}

/// Read-only is the lack of every write bit; giving it up gives the owner one.
mode_t WithReadOnly(mode_t mode, bool readOnly) {
  if (readOnly) return mode & ~mode_t{0222};
  return (mode & 0222) == 0 ? mode | 0200 : mode;
}

SysResult SetAttributesAt(const Place& place, uint32_t attributes) {
  EntryStatus entry = {};
  if (const SysResult found = StatusAt(place, entry); !found) return found;
  constexpr uint32_t kSettable =
      FileAttribute::ReadOnly | FileAttribute::Hidden | FileAttribute::System | FileAttribute::Archive;
  const uint32_t present = AttributesOf(place.Fd(), place.Name(), entry);
  const uint32_t changed = (present ^ attributes) & kSettable;
  if (changed == 0) return {};
  // A link has no attributes of its own, and what it leads to is not what was named.
  if (entry.isLink) return SysResult::Failure(Win32Error::NotSupported);

  const mode_t oldMode = entry.status.st_mode & 07777;
  const mode_t newMode = WithReadOnly(oldMode, (attributes & FileAttribute::ReadOnly) != 0);
  mode_t mode = oldMode;
  const auto changeMode = [&](mode_t wanted) {
    if (mode == wanted) return true;
    if (fchmodat(place.Fd(), place.Name(), wanted, 0) != 0) return false;
    mode = wanted;
    return true;
  };
  if ((changed & ~FileAttribute::ReadOnly) != 0) {
    // The system stores attributes only in what may be written.
    if (!changeMode(WithReadOnly(oldMode, false))) return LastFailure();
    if (!StoreAttributes(place.Fd(), place.Name(), attributes)) {
      const SysResult failure = LastFailure();
      changeMode(oldMode);
      return failure;
    }
  }
  return changeMode(newMode) ? SysResult() : LastFailure();
}

}  // namespace

bool PosixFiles::FileExists(std::string_view path) {
  EntryStatus entry = {};
  return paths_.OnEntry(path, [&](const Place& place) { return StatusAt(place, entry); }).ok &&
         !entry.IsFolder();
}

bool PosixFiles::FolderExists(std::string_view path) {
  EntryStatus entry = {};
  return paths_.OnEntry(path, [&](const Place& place) { return StatusAt(place, entry); }).ok &&
         entry.IsFolder();
}

bool PosixFiles::EntryExists(std::string_view path) {
  const Place place = paths_.Locate(path);
  struct stat status = {};
  return place.folder && fstatat(place.Fd(), place.Name(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

SysResult PosixFiles::GetAttributes(std::string_view path, uint32_t& attributes) {
  return paths_.OnEntry(path, [&](const Place& place) {
    EntryStatus entry = {};
    if (const SysResult found = StatusAt(place, entry); !found) return found;
    attributes = AttributesOf(place.Fd(), place.Name(), entry);
    if (attributes == 0) attributes = FileAttribute::Normal;
    return SysResult();
  });
}

SysResult PosixFiles::SetAttributes(std::string_view path, uint32_t attributes) {
  return paths_.OnEntry(path, [&](const Place& place) { return SetAttributesAt(place, attributes); });
}

SysResult PosixFiles::Delete(std::string_view path) {
  return paths_.OnEntry(path, [this](const Place& place) { return DeleteAt(place); });
}

SysResult PosixFiles::DeleteAt(const Place& place) {
  struct stat status = {};
  if (fstatat(place.Fd(), place.Name(), &status, AT_SYMLINK_NOFOLLOW) != 0) return LastFailure();
  if (S_ISDIR(status.st_mode) || IsReadOnly(status)) return SysResult::Failure(Win32Error::AccessDenied);
  NameIndex::Change change(paths_.Names(), place.Fd());
  if (unlinkat(place.Fd(), place.Name(), 0) != 0) return LastFailure();
  change.Removed(place.name);
  return {};
}

SysResult PosixFiles::CreateFolder(std::string_view path) {
  Place place = paths_.Locate(path);
  if (!place.folder) return SysResult::Failure(place.error);
  if (paths_.OtherCase(place)) return SysResult::Failure(Win32Error::AlreadyExists);
  NameIndex::Change change(paths_.Names(), place.Fd());
  if (mkdirat(place.Fd(), place.Name(), 0777) != 0) return LastFailure();
  change.Added(place.name);
  return {};
}

SysResult PosixFiles::CreateFolders(std::string_view path) {
  SysResult created = CreateFolder(path);
  const std::string_view parent = ParentFolder(path);
  if (created.code == Win32Error::PathNotFound && !parent.empty() && parent.size() < path.size()) {
    if (const SysResult above = CreateFolders(parent); !above) return above;
    created = CreateFolder(path);
  }
  return created.code == Win32Error::AlreadyExists && FolderExists(path) ? SysResult() : created;
}

SysResult PosixFiles::RemoveFolder(std::string_view path) {
  const SysResult removed =
      paths_.OnEntry(path, [this](const Place& place) { return RemoveFolderAt(place); });
  paths_.ForgetFolder();
  return removed;
}

SysResult PosixFiles::RemoveFolderAt(const Place& place) {
  EntryStatus entry = {};
  if (const SysResult found = StatusAt(place, entry); !found) return found;
  if (!entry.IsFolder()) return SysResult::Failure(Win32Error::Directory);
  if (!entry.isLink && IsReadOnly(entry.status)) return SysResult::Failure(Win32Error::AccessDenied);
  NameIndex::Change change(paths_.Names(), place.Fd());
  if (unlinkat(place.Fd(), place.Name(), entry.isLink ? 0 : AT_REMOVEDIR) != 0) return LastFailure();
  change.Removed(place.name);
  return {};
}

SysResult PosixFiles::ReadWhole(std::string_view path, std::string& contents) {
  return paths_.OnEntry(path, [&](const Place& place) { return ReadContents(place, contents); });
}

SysResult PosixFiles::Replace(std::string_view path, std::string_view contents) {
  return ReplaceContents(paths_, path, contents);
}
