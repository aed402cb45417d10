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
  constexpr DWORD kKnown = MoveFlag::ReplaceExisting | MoveFlag::CopyAllowed | MoveFlag::WriteThrough;
  const SysResult moved = ResultOf(MoveFileWithProgressW(
      from.c_str(), to.c_str(), &Report, const_cast<CopyProgress*>(&progress), flags & kKnown));
  // A folder that would have to go into itself: the system's releases have two words for it.
  const bool intoItself = moved.code == Win32Error::InvalidParameter;
  return intoItself && !moved ? SysResult::Failure(Win32Error::SharingViolation) : moved;
}
