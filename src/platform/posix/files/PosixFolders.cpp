#include "platform/posix/files/PosixFolders.h"

#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

#include "base/WindowsPath.h"
#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/FolderEmptying.h"
#include "platform/posix/files/TemporaryName.h"
#include "platform/posix/paths/DiskChange.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

/// A folder with nothing in it but what nobody can find counts as empty.
bool Unlink(const Place& place, int flags) {
  if (unlinkat(place.Fd(), place.Name(), flags) == 0) return true;
  if (errno != ENOTEMPTY) return false;
  const UniqueFd folder(openat(place.Fd(), place.Name(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (folder) RemoveAllAbandoned(folder.Get());
  return unlinkat(place.Fd(), place.Name(), flags) == 0;
}

}  // namespace

bool PosixFolders::Exists(std::string_view path) {
  EntryStatus entry = {};
  return paths_.OnEntry(path, [&](const Place& place) { return StatusAt(place, entry); }).ok &&
         entry.IsFolder();
}

SysResult PosixFolders::Create(std::string_view path) { return CreateFor({}, path); }

/// Creates a folder for what comes from the folder `source`, where that is given.
SysResult PosixFolders::CreateFor(std::string_view source, std::string_view path) {
  Place place = paths_.Locate(path);
  if (!place.folder) return SysResult::Failure(place.error);
  if (!HasTwin(source, place)) paths_.SettleTarget(place);
  return CreateAt(place);
}

SysResult PosixFolders::CreateAsWritten(std::string_view path) {
  Place place = paths_.Locate(path);
  if (!place.folder) return SysResult::Failure(place.error);
  paths_.SettleAsWritten(place);
  return CreateAt(place);
}

SysResult PosixFolders::CreateAt(const Place& place) {
  DiskChange change(paths_, place, DiskChange::NewFolder);
  if (mkdirat(place.Fd(), place.Name(), 0777) != 0) return LastFailure();
  change.Added(place.name);
  return {};
}

/// Whether what stands at the place in other case is called as another folder beside the source.
bool PosixFolders::HasTwin(std::string_view source, const Place& target) {
  if (source.empty()) return false;
  struct stat own = {}, other = {};
  const auto stands = [](const Place& place, struct stat& status) {
    return fstatat(place.Fd(), place.Name(), &status, 0) == 0;
  };
  Place there = target;
  if (stands(there, other) || !paths_.OtherCase(there)) return false;
  Place from = paths_.Locate(source);
  if (!from.folder || !stands(from, own)) return false;
  from.name = there.name;
  return stands(from, other) && S_ISDIR(other.st_mode) && own.st_ino != other.st_ino;
}

SysResult PosixFolders::CreateWithParents(std::string_view path, std::string_view source) {
  const std::string_view parent = ParentFolder(path);
  const bool hasParent = !parent.empty() && parent.size() < path.size();
  const bool isMirrored = hasParent && !source.empty() && NamePart(path) == NamePart(source);
  if (!isMirrored) source = {};
  // The folders above first, or one would be made in a twin of the folder that is wanted.
  if (isMirrored) CreateWithParents(parent, ParentFolder(source));
  SysResult created = CreateFor(source, path);
  if (created.code == Win32Error::PathNotFound && hasParent) {
    if (const SysResult above = CreateWithParents(parent, {}); !above) return above;
    created = CreateFor(source, path);
  }
  return created.code == Win32Error::AlreadyExists && Exists(path) ? SysResult() : created;
}

SysResult PosixFolders::Remove(std::string_view path) {
  return paths_.OnEntry(path, [this](const Place& place) { return RemoveAt(place); });
}

SysResult PosixFolders::Empty(std::string_view path, const EmptyingOptions& options) {
  const DiskChange change(paths_);
  return paths_.OnEntry(path, [&options](const Place& place) { return EmptyFolder(place, options); });
}

SysResult PosixFolders::RemoveAt(const Place& place) {
  EntryStatus entry = {};
  if (const SysResult found = StatusAt(place, entry); !found) return found;
  if (!entry.IsFolder()) return SysResult::Failure(Win32Error::Directory);
  if (!entry.isLink && IsReadOnly(entry.status)) return SysResult::Failure(Win32Error::AccessDenied);
  if (place.name == ".") return RemoveItself(place);
  DiskChange change(paths_, place, DiskChange::Folder);
  if (!Unlink(place, entry.isLink ? 0 : AT_REMOVEDIR)) return LastFailure();
  change.Removed(place.name);
  return {};
}

/// A folder named by "." or ".." can only be removed by the name that it has in the folder above.
SysResult PosixFolders::RemoveItself(const Place& place) {
  const std::unique_ptr<char, decltype(&std::free)> path(realpath(place.folder->path.c_str(), nullptr),
                                                         &std::free);
  const DiskChange change(paths_);
  return path && rmdir(path.get()) == 0 ? SysResult() : LastFailure();
}
