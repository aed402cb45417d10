#include "platform/posix/files/PosixOpenFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

#include "platform/CopyBytes.h"
#include "platform/posix/files/EntryStatus.h"
#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/system/LocalTime.h"
#include "platform/posix/system/PosixErrors.h"
#include "platform/posix/system/UniqueFd.h"

namespace {

// Well below what a system call takes at most.
constexpr uint64_t kMostAtOnce = uint64_t{1} << 30;

class PosixOpenFile final : public OpenFile {
 public:
  explicit PosixOpenFile(UniqueFd fd) : fd_(std::move(fd)) {}

  SysResult Read(std::span<char> buffer, size_t& count) override {
    const ssize_t got = ReadSome(fd_.Get(), buffer.data(), buffer.size());
    count = got < 0 ? 0 : static_cast<size_t>(got);
    return got < 0 ? LastFailure() : SysResult();
  }
  SysResult Write(std::string_view bytes) override { return Result(WriteAll(fd_.Get(), bytes)); }
  SysResult CopyFrom(OpenFile& source, uint64_t most, uint64_t& count) override {
    if (const auto* from = dynamic_cast<const PosixOpenFile*>(&source)) {
      const ssize_t copied = copy_file_range(from->fd_.Get(), nullptr, fd_.Get(), nullptr,
                                             static_cast<size_t>(std::min<uint64_t>(most, kMostAtOnce)), 0);
      count = static_cast<uint64_t>(copied);
      if (copied > 0) return {};
    }
    // Not every file system can, nor is every file at its end that the kernel finds nothing more in; what is
    // really wrong shows again when the bytes are read and written.
    return CopyBytes(source, *this, most, count);
  }
  SysResult Seek(uint64_t position) override {
    return Result(lseek(fd_.Get(), static_cast<off_t>(position), SEEK_SET) >= 0);
  }
  SysResult GetSize(uint64_t& size) override {
    struct stat status = {};
    if (fstat(fd_.Get(), &status) != 0) return LastFailure();
    size = static_cast<uint64_t>(status.st_size);
    return {};
  }
  SysResult SetSize(uint64_t size) override {
    return Result(ftruncate(fd_.Get(), static_cast<off_t>(size)) == 0);
  }
  SysResult GetLastWrite(TDateTime& local) override {
    struct stat status = {};
    if (fstat(fd_.Get(), &status) != 0) return LastFailure();
    local = ToLocal(status.st_mtim);
    return {};
  }
  SysResult SetLastWrite(TDateTime local) override {
    const timespec times[] = {{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, FromLocal(local)};
    return Result(futimens(fd_.Get(), times) == 0);
  }

 private:
  static SysResult Result(bool done) { return done ? SysResult() : LastFailure(); }

  UniqueFd fd_;
};

// Opens see each other through locks that the system lets go with the last copy of the descriptor. The whole
// file is held shared, or exclusively against all others, where every other look at files meets it too. Who
// writes and who denies writing mark a place each beyond the end of any file, since a whole lock cannot tell
// the two apart.
constexpr off_t kWrites = 0x7ffffffffffffff0;
constexpr off_t kDeniesWriting = kWrites + 1;

/// False only where another open holds the lock; not every file system has locks.
bool Lock(int fd, short type, off_t place, int command) {
  struct flock lock = {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = place;
  lock.l_len = 1;
  if (fcntl(fd, command, &lock) != 0) return errno != EAGAIN && errno != EACCES;
  return command != F_OFD_GETLK || lock.l_type == F_UNLCK;
}

bool IsMarked(int fd, off_t place) { return !Lock(fd, F_WRLCK, place, F_OFD_GETLK); }

/// False when another open stands against this one.
bool Share(int fd, bool writes, ShareMode share) {
  const int whole = share == ShareMode::DenyAll ? LOCK_EX : LOCK_SH;
  if (flock(fd, whole | LOCK_NB) != 0) return errno != EWOULDBLOCK;
  if (share == ShareMode::DenyAll) return true;
  // Marked before looking, so that of two that come at once one at least is refused.
  if (writes && (!Lock(fd, F_RDLCK, kWrites, F_OFD_SETLK) || IsMarked(fd, kDeniesWriting))) return false;
  if (share == ShareMode::DenyNone) return true;
  return Lock(fd, F_RDLCK, kDeniesWriting, F_OFD_SETLK) && !IsMarked(fd, kWrites);
}

/// The rest of opening: what may be opened at all, and beside whom.
SysResult Take(UniqueFd fd, OpenMode mode, ShareMode share, std::unique_ptr<OpenFile>& file) {
  struct stat status = {};
  if (!fd || fstat(fd.Get(), &status) != 0) return LastFailure();
  const bool writes = mode != OpenMode::Read;
  if (!S_ISREG(status.st_mode) || (writes && IsReadOnly(status))) {
    return SysResult::Failure(Win32Error::AccessDenied);
  }
  if (!Share(fd.Get(), writes, share)) return SysResult::Failure(Win32Error::SharingViolation);
  if (mode == OpenMode::Create && status.st_size != 0 && ftruncate(fd.Get(), 0) != 0) return LastFailure();
  file = std::make_unique<PosixOpenFile>(std::move(fd));
  return {};
}

}  // namespace

SysResult OpenExisting(const Place& place, OpenMode mode, ShareMode share, std::unique_ptr<OpenFile>& file) {
  // Without waiting, for a pipe would have it wait for the other end.
  const int access = mode == OpenMode::Read ? O_RDONLY : O_RDWR;
  return Take(UniqueFd(openat(place.Fd(), place.Name(), access | O_NONBLOCK | O_CLOEXEC)), mode, share, file);
}

SysResult CreateAndOpen(const Place& place, ShareMode share, std::unique_ptr<OpenFile>& file) {
  constexpr int kFlags = O_RDWR | O_CREAT | O_NONBLOCK | O_CLOEXEC;
  return Take(UniqueFd(openat(place.Fd(), place.Name(), kFlags, 0666)), OpenMode::Create, share, file);
}

std::unique_ptr<OpenFile> TakeOpen(UniqueFd fd) { return std::make_unique<PosixOpenFile>(std::move(fd)); }
SysResult ChangeLastWriteAt(const Place& place, const LastWriteChange& change) {
  const UniqueFd fd(openat(place.Fd(), place.Name(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status = {};
  if (!fd || fstat(fd.Get(), &status) != 0) return LastFailure();
  if (!S_ISREG(status.st_mode) || IsReadOnly(status)) return SysResult::Failure(Win32Error::AccessDenied);
  // Over before anyone could mind, so that it need not be marked as an open that writes.
  if (!MayUse(fd.Get()) || IsMarked(fd.Get(), kDeniesWriting)) {
    return SysResult::Failure(Win32Error::SharingViolation);
  }
  const timespec times[] = {{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, FromLocal(change(ToLocal(status.st_mtim)))};
  return futimens(fd.Get(), times) == 0 ? SysResult() : LastFailure();
}
