#include "platform/posix/files/FileContents.h"

#include <fcntl.h>
#include <stdexcept>

#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/NewFile.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

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

/// Writes beside the target and exchanges the two; `old` is the open target, or nothing where it is new.
SysResult Exchange(PosixPaths& paths, const Place& target, int old, const struct stat& status,
                   std::string_view contents) {
  // The folder must be writable too, since only an exchange of files is one step.
  NameIndex::Change change(paths.Names(), target.Fd());
  NewFile file(target);
  if (!file.CreateBeside(old < 0 ? 0666 : 0600) || !WriteAll(file.Fd(), contents)) return LastFailure();
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

}  // namespace

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
