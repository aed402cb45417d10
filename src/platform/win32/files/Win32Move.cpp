#include <string>

#include "platform/FileNames.h"
#include "platform/win32/files/Win32Entries.h"
#include "platform/win32/files/Win32NewFile.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"

namespace {

DWORD CALLBACK Report(LARGE_INTEGER total, LARGE_INTEGER transferred, LARGE_INTEGER, LARGE_INTEGER, DWORD,
                      DWORD, HANDLE, HANDLE, LPVOID context) {
  const auto& progress = *static_cast<const CopyProgress*>(context);
  if (progress) progress(static_cast<uint64_t>(transferred.QuadPart), static_cast<uint64_t>(total.QuadPart));
  return PROGRESS_CONTINUE;
}

/// Without the delimiter that a folder's path may end in; only a root needs it.
SysResult FolderOrFilePath(std::string_view path, std::wstring& native) {
  const SysResult result = NativePath(path, native);
  if (native.ends_with(L'\\') && !native.ends_with(L":\\")) native.pop_back();
  return result;
}

/// Whether a file is held exclusively; a link is no file.
bool IsHeld(const std::wstring& native, DWORD attributes) {
  if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) != 0) return false;
  return !OpenToReplace(native) && LastError() == Win32Error::SharingViolation;
}

/// What tells that a file was written to.
struct Stamp {
  uint64_t size = 0, written = 0;
  bool operator==(const Stamp&) const = default;

  static SysResult Of(const std::wstring& native, Stamp& stamp) {
    WIN32_FILE_ATTRIBUTE_DATA found = {};
    if (!GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &found)) return LastFailure();
    stamp.size = uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
    stamp.written =
        uint64_t{found.ftLastWriteTime.dwHighDateTime} << 32 | found.ftLastWriteTime.dwLowDateTime;
    return {};
  }
};

SysResult CheckUnchanged(const std::wstring& native, const Stamp& before) {
  Stamp now;
  const SysResult found = Stamp::Of(native, now);
  if (!found || now == before) return found;
  return SysResult::Failure(Win32Error::SharingViolation);
}

/// A read-only source goes too.
SysResult DeleteSource(const std::wstring& native, DWORD attributes) {
  const bool isReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (isReadOnly) SetFileAttributesW(native.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  if (DeleteFileW(native.c_str())) return {};
  const SysResult failure = LastFailure();
  if (isReadOnly) SetFileAttributesW(native.c_str(), attributes);
  return failure;
}

/// To another volume: the new file is whole beside the target before it gets the name, and the source goes
/// only when it is what was read.
SysResult MoveAcross(const std::wstring& from, const std::wstring& to, uint32_t flags,
                     const CopyProgress& progress) {
  const DWORD attributes = GetFileAttributesW(from.c_str());
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return SysResult::Failure(Win32Error::AccessDenied);
  Stamp before;
  if (const SysResult found = Stamp::Of(from, before); !found) return found;
  NewFile file;
  const SysResult copied = file.CreateBy(to, [&](const std::wstring& name) {
    constexpr DWORD kFlags = COPY_FILE_FAIL_IF_EXISTS | COPY_FILE_COPY_SYMLINK;
    return ResultOf(CopyFileExW(from.c_str(), name.c_str(), &Report, const_cast<CopyProgress*>(&progress),
                                nullptr, kFlags));
  });
  if (!copied) return copied;
  if (const SysResult same = CheckUnchanged(from, before); !same) return same;
  constexpr DWORD kNaming = MoveFlag::ReplaceExisting | MoveFlag::WriteThrough;
  if (const SysResult kept = file.KeepAs(to, flags & kNaming); !kept) return kept;
  const SysResult same = CheckUnchanged(from, before);
  return same ? DeleteSource(from, attributes) : same;
}

}  // namespace

SysResult Win32Entries::Move(std::string_view source, std::string_view target, uint32_t flags,
                             const CopyProgress& progress) {
  std::wstring from, to;
  if (const SysResult result = CheckMoveNames(folders_, source, target); !result) return result;
  if (const SysResult result = FolderOrFilePath(source, from); !result) return result;
  if (const SysResult result = FolderOrFilePath(target, to); !result) return result;
  const DWORD old = GetFileAttributesW(to.c_str());
  if ((flags & MoveFlag::ReplaceExisting) != 0 && old != INVALID_FILE_ATTRIBUTES) {
    // Asked for here, because the system's own answers to these differ between its releases.
    constexpr DWORD kRefused = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    const DWORD own = GetFileAttributesW(from.c_str());
    const bool isFolder = own != INVALID_FILE_ATTRIBUTES && (own & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const bool isItself = CompareStringOrdinal(from.c_str(), -1, to.c_str(), -1, TRUE) == CSTR_EQUAL;
    if (((old & kRefused) != 0 || isFolder) && !isItself) return SysResult::Failure(Win32Error::AccessDenied);
    if (IsHeld(to, old)) return SysResult::Failure(Win32Error::SharingViolation);
  }
  constexpr DWORD kKnown = MoveFlag::ReplaceExisting | MoveFlag::WriteThrough;
  const SysResult moved = ResultOf(MoveFileWithProgressW(
      from.c_str(), to.c_str(), &Report, const_cast<CopyProgress*>(&progress), flags & kKnown));
  if (!moved && moved.code == Win32Error::NotSameDevice && (flags & MoveFlag::CopyAllowed) != 0) {
    return MoveAcross(from, to, flags, progress);
  }
  // A folder that would have to go into itself: the system's releases have two words for it.
  const bool intoItself = moved.code == Win32Error::InvalidParameter;
  return intoItself && !moved ? SysResult::Failure(Win32Error::SharingViolation) : moved;
}
