#include "platform/posix/files/FileContents.h"

#include <cerrno>
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
  // What tells no size may have no end.
  constexpr size_t kMostUntold = size_t{256} << 20;
  contents.clear();
  size_t filled = 0;
  for (size_t room = expected == 0 ? kLeast : expected + 1;; room = contents.size() * 2) {
    if (expected == 0 && room > kMostUntold) return SysResult::Failure(Win32Error::NotEnoughMemory);
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

SysResult ReadOpen(const UniqueFd& fd, std::string& contents, bool onlyFiles) {
  struct stat status = {};
  if (!fd || fstat(fd.Get(), &status) != 0) return LastFailure();
  const bool isFile = S_ISREG(status.st_mode);
  // What is no file might never come to its end.
  if (onlyFiles && !isFile && !S_ISDIR(status.st_mode)) return SysResult::Failure(Win32Error::NotSupported);
  if (!MayUse(fd.Get())) return LastFailure();
  try {
    return ReadToEnd(fd.Get(), isFile ? static_cast<size_t>(status.st_size) : 0, contents);
  } catch (const std::exception&) {
    return SysResult::Failure(Win32Error::NotEnoughMemory);
  }
}

}  // namespace

SysResult ReadContents(const Place& place, std::string& contents) {
  // Without waiting, for a pipe would have it wait for the other end.
  const UniqueFd fd(openat(place.Fd(), place.Name(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  return ReadOpen(fd, contents, true);
}

SysResult ReadStream(const Place& place, std::string& contents) {
  const UniqueFd fd(openat(place.Fd(), place.Name(), O_RDONLY | O_CLOEXEC));
  return ReadOpen(fd, contents, false);
}

SysResult ReplaceContents(PosixPaths& paths, const Place& place, std::string_view contents) {
  RewriteTarget target;
  if (const SysResult found = FindRewriteTarget(place, target); !found) return found;
  if (target.old) paths.SweepOnce(*place.folder);
  // The folder must be writable too, since only an exchange of files is one step.
  DiskChange change(paths, place, DiskChange::File);
  NewFile file(place);
  const mode_t mode = target.ModeUntilDone();
  const bool created = target.old ? file.CreateBeside(mode) : file.CreateUnseen(mode);
  if (!created || !WriteAll(file.Fd(), contents)) return LastFailure();
  return TakePlace(file, target, change);
}
