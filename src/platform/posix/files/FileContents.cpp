#include "platform/posix/files/FileContents.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <stdexcept>
#include <sys/mman.h>

#include "platform/posix/files/NewFile.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/files/Rewrite.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

/// Few large pages of memory instead of many small ones, where the system has them: to get the small ones
/// costs more than to read what fills them. Without them all goes on as well.
void AskForLargePages(const std::string& text) {
  constexpr uintptr_t kLargest = size_t{1} << 16;  // of the small ones
  const auto first = (reinterpret_cast<uintptr_t>(text.data()) + kLargest - 1) & ~(kLargest - 1);
  const auto end = reinterpret_cast<uintptr_t>(text.data() + text.capacity()) & ~(kLargest - 1);
  if (end > first) madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
}

SysResult ReadToEnd(int fd, size_t expected, std::string& contents) {
  // A piece at a time stays in the processor's cache between being made and being filled.
  constexpr size_t kLeast = 4096, kPiece = size_t{256} << 10, kLarge = size_t{4} << 20;
  // What tells no size may have no end.
  constexpr size_t kMostUntold = size_t{256} << 20;
  contents.clear();
  contents.reserve(expected + 1);
  if (expected >= kLarge) AskForLargePages(contents);
  for (size_t filled = 0;;) {
    // One byte more than expected tells the end of an unchanged file with its last piece.
    const bool goesBeyond = expected == 0 || filled > expected;
    const size_t wanted =
        goesBeyond ? std::clamp(filled, kLeast, kPiece) : std::min(expected + 1 - filled, kPiece);
    if (expected == 0 && filled > kMostUntold) return SysResult::Failure(Win32Error::NotEnoughMemory);
    contents.resize(filled + wanted);
    const ssize_t count = ReadSome(fd, contents.data() + filled, wanted);
    if (count < 0) return LastFailure();
    filled += static_cast<size_t>(count);
    if (count > 0 && (filled != expected || static_cast<size_t>(count) == wanted)) continue;
    contents.resize(filled);
    return {};
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
