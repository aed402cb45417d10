#include <optional>
#include <string>

#include "platform/FileNames.h"
#include "platform/win32/files/Win32Entries.h"
#include "platform/win32/files/Win32NewFile.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"

namespace {

/// What the system tells while it copies.
class Progress {
 public:
  explicit Progress(const CopyOptions& options) : options_(options) {}

  bool IsCancelled() const { return options_.cancel != nullptr && *options_.cancel; }

  SysResult Copy(const std::wstring& source, const std::wstring& target) {
    if (IsCancelled()) return SysResult::Failure(Win32Error::RequestAborted);
    constexpr DWORD kFlags = COPY_FILE_FAIL_IF_EXISTS;
    return ResultOf(CopyFileExW(source.c_str(), target.c_str(), &Report, this, nullptr, kFlags));
  }

  /// The system need not tell the end, nor anything of a small file.
  void Finish(uint64_t size) {
    if (options_.progress && last_ != size) options_.progress(size, size);
  }

 private:
  static DWORD CALLBACK Report(LARGE_INTEGER total, LARGE_INTEGER transferred, LARGE_INTEGER, LARGE_INTEGER,
                               DWORD, DWORD, HANDLE, HANDLE, LPVOID context) {
    auto& self = *static_cast<Progress*>(context);
    self.last_ = static_cast<uint64_t>(transferred.QuadPart);
    if (self.options_.progress) self.options_.progress(*self.last_, static_cast<uint64_t>(total.QuadPart));
    return self.IsCancelled() ? PROGRESS_CANCEL : PROGRESS_CONTINUE;
  }

  const CopyOptions& options_;
  std::optional<uint64_t> last_;
};

/// Copies beside a target that exists and exchanges the two.
SysResult CopyOver(Progress& progress, const std::wstring& source, DWORD attributes,
                   const std::wstring& target) {
  std::wstring own;
  {
    const Handle old = OpenToReplace(target);
    if (!old) return LastFailure();
    own = FinalPath(old, target);
  }
  NewFile file;
  const SysResult copied = file.CreateBy(own, [&](const std::wstring& name) {
    const SysResult result = progress.Copy(source, name);
    // Only what may be written can take another's place; it gets its attributes there.
    return result ? ResultOf(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL)) : result;
  });
  return copied ? file.TakePlaceOf(own, attributes) : copied;
}

constexpr DWORD kMustAgree = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

}  // namespace

SysResult Win32Entries::Copy(std::string_view source, std::string_view target, const CopyOptions& options) {
  std::wstring from, to;
  if (const SysResult result = CheckFileNames(folders_, source, target); !result) return result;
  if (const SysResult result = NativePath(source, from); !result) return result;
  if (const SysResult result = NativePath(target, to); !result) return result;
  WIN32_FILE_ATTRIBUTE_DATA found = {};
  if (!GetFileAttributesExW(from.c_str(), GetFileExInfoStandard, &found)) return LastFailure();
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return SysResult::Failure(Win32Error::AccessDenied);
  }
  Progress progress(options);
  SysResult copied;
  const DWORD old = GetFileAttributesW(to.c_str());
  if (old == INVALID_FILE_ATTRIBUTES || options.failIfExists) {
    copied = progress.Copy(from, to);
  } else {
    // Asked for here, because the system's own answers to these differ between its releases.
    constexpr DWORD kRefused = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    const auto identity = Identity(source);
    if (identity && identity == Identity(target)) return SysResult::Failure(Win32Error::SharingViolation);
    if ((old & kRefused) != 0 || (old & ~found.dwFileAttributes & kMustAgree) != 0) {
      return SysResult::Failure(Win32Error::AccessDenied);
    }
    copied = CopyOver(progress, from, found.dwFileAttributes, to);
  }
  if (copied) progress.Finish(uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow);
  return copied;
}
