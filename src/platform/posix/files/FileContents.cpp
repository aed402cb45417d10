#include "platform/posix/files/FileContents.h"

#include <fcntl.h>
#include <stdexcept>

#include "platform/posix/files/NewFile.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/files/Rewrite.h"
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
  RewriteTarget target;
  if (const SysResult found = FindRewriteTarget(paths, path, target); !found) return found;
  if (target.old && !S_ISREG(target.status.st_mode)) return WriteInto(target.old.Get(), contents);
  // The folder must be writable too, since only an exchange of files is one step.
  DiskChange change(paths, target.place, DiskChange::File);
  NewFile file(target.place);
  if (!file.CreateBeside(target.ModeUntilDone()) || !WriteAll(file.Fd(), contents)) return LastFailure();
  return TakePlace(file, target, change);
}
