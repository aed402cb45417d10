#include "platform/posix/files/Transfer.h"

#include <algorithm>
#include <cerrno>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/posix/files/OpenedFile.h"
#include "platform/posix/system/PosixErrors.h"

namespace {

// What is copied between two looks at the cancel flag.
constexpr uint64_t kKernelChunk = uint64_t{8} << 20;
constexpr size_t kBuffer = size_t{64} << 10;

constexpr uint64_t kBlock = 512;  // what st_blocks counts in

}  // namespace

Transfer::Transfer(int from, const struct stat& status, int to)
    : from_(from),
      to_(to),
      total_(static_cast<uint64_t>(status.st_size)),
      dataEnd_(total_),
      inKernel_(status.st_size >= kLargeFile),
      hasHoles_(static_cast<uint64_t>(status.st_blocks) * kBlock < total_) {
  if (hasHoles_) dataEnd_ = 0;
}

SysResult Transfer::Run(const CopyOptions& options) {
  const auto isCancelled = [&] { return options.cancel != nullptr && *options.cancel; };
  while (!atEnd_) {
    if (isCancelled()) return SysResult::Failure(Win32Error::RequestAborted);
    if (!Step()) return LastFailure();
    if (options.progress) options.progress(done_, total_);
  }
  return isCancelled() ? SysResult::Failure(Win32Error::RequestAborted) : SysResult();
}

/// Copies one chunk; false with the reason in errno.
bool Transfer::Step() {
  if (inKernel_ && done_ == 0 && ioctl(to_, FICLONE, from_) == 0) {
    done_ = total_;
    return atEnd_ = true;
  }
  if (hasHoles_ && done_ == dataEnd_ && !SkipHole()) return false;
  if (!atEnd_ && !CopyChunk()) return false;
  // The size that the file was said to have spares the read that would tell the end.
  return atEnd_ || done_ < total_ || total_ == 0 || End();
}

bool Transfer::CopyChunk() {
  if (inKernel_) {
    const uint64_t wanted = std::min(kKernelChunk, dataEnd_ - done_);
    const ssize_t count = copy_file_range(from_, nullptr, to_, nullptr, wanted, 0);
    if (count > 0) {
      done_ += static_cast<uint64_t>(count);
      return true;
    }
    // Not every file system can; what is really wrong shows again when the bytes are read and written.
    inKernel_ = false;
  }
  char buffer[kBuffer];
  const uint64_t wanted = hasHoles_ ? std::min<uint64_t>(sizeof buffer, dataEnd_ - done_) : sizeof buffer;
  const ssize_t count = ReadSome(from_, buffer, wanted);
  if (count < 0) return false;
  if (count == 0) return End();
  done_ += static_cast<uint64_t>(count);
  return WriteAll(to_, {buffer, static_cast<size_t>(count)});
}

/// Goes on to where data begins again, or to the end.
bool Transfer::SkipHole() {
  const off_t here = static_cast<off_t>(done_);
  off_t start = lseek(from_, here, SEEK_DATA);
  if (start < 0 && errno == ENXIO) {
    done_ = total_;
    return ftruncate(to_, static_cast<off_t>(total_)) == 0 && End();
  }
  off_t end = start < 0 ? -1 : lseek(from_, start, SEEK_HOLE);
  if (end < 0) {
    // The file system cannot tell: all is data.
    start = here;
    end = static_cast<off_t>(total_);
  }
  done_ = static_cast<uint64_t>(start);
  dataEnd_ = static_cast<uint64_t>(end);
  return lseek(from_, start, SEEK_SET) >= 0 && lseek(to_, start, SEEK_SET) >= 0;
}

bool Transfer::End() {
  total_ = done_;
  return atEnd_ = true;
}
