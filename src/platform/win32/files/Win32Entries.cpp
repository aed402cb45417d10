#include "platform/win32/files/Win32Entries.h"

#include "base/WindowsPath.h"
#include "platform/Contents.h"
#include "platform/Folders.h"
#include "platform/Presence.h"
#include "platform/win32/files/Win32NewFile.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"

namespace {

/// The attributes of an entry, a link's own; none when there is no such entry.
DWORD AttributesOf(const std::wstring& native) { return GetFileAttributesW(native.c_str()); }

bool HasAll(DWORD attributes, DWORD wanted) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) == wanted;
}

/// Whether the path is a link to a folder; other reparse points are folders of some file system's own kind.
bool IsFolderLink(const std::wstring& native, DWORD attributes) {
  if (!HasAll(attributes, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) return false;
  WIN32_FIND_DATAW data;
  const HANDLE search = FindFirstFileW(native.c_str(), &data);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return IsReparseTagNameSurrogate(data.dwReserved0);
}

}  // namespace

bool Win32Entries::FileExists(std::string_view path) {
  std::wstring native;
  if (EndsInPathDelimiter(path) || !NativePath(path, native)) return false;
  const DWORD attributes = AttributesOf(native);
  if (attributes == INVALID_FILE_ATTRIBUTES) return MayBeThere(LastError());
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool Win32Entries::TargetExists(std::string_view /*source*/, std::string_view target) {
  return FileExists(target);  // one spelling stands for all
}

SysResult Win32Entries::CheckReplace(std::string_view path) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const DWORD attributes = AttributesOf(native);
  if (attributes == INVALID_FILE_ATTRIBUTES) return LastFailure();
  if ((attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
    return SysResult::Failure(Win32Error::AccessDenied);
  }
  const bool isLink = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  return isLink || OpenToReplace(native) ? SysResult() : LastFailure();
}

bool Win32Entries::EntryExists(std::string_view path) {
  std::wstring native;
  if (HasWildcards(path) || !NativePath(path, native)) return false;
  if (native.ends_with(L":\\")) return folders_.Exists(path);  // a root has no name
  if (native.ends_with(L'\\')) native.pop_back();
  // The folder's own listing gives the spelling, and shows an entry whose deletion is pending.
  WIN32_FIND_DATAW data;
  const HANDLE search = FindFirstFileW(native.c_str(), &data);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return native.ends_with(data.cFileName);
}

std::optional<EntryIdentity> Win32Entries::Identity(std::string_view path) {
  std::wstring native;
  if (!NativePath(path, native)) return {};
  const Handle entry(CreateFileW(native.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                 FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION found = {};
  if (!entry || !GetFileInformationByHandle(entry.Get(), &found)) return {};
  return EntryIdentity{found.dwVolumeSerialNumber,
                       uint64_t{found.nFileIndexHigh} << 32 | found.nFileIndexLow};
}

SysResult Win32Entries::GetSize(std::string_view path, uint64_t& size) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  WIN32_FILE_ATTRIBUTE_DATA found = {};
  if (!GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &found)) return LastFailure();
  const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  size = isFolder ? 0 : uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
  return {};
}

SysResult Win32Entries::GetAttributes(std::string_view path, uint32_t& attributes) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const DWORD found = AttributesOf(native);
  if (found == INVALID_FILE_ATTRIBUTES) return LastFailure();
  attributes = found;
  return {};
}

SysResult Win32Entries::SetAttributes(std::string_view path, uint32_t attributes) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  return ResultOf(SetFileAttributesW(native.c_str(), attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes));
}

SysResult Win32Entries::ChangeLastWrite(std::string_view path, const LastWriteChange& change) {
  std::unique_ptr<class OpenFile> file;  // the system has a function of the name
  TDateTime lastWrite;
  SysResult result = contents_.Open(path, OpenMode::Modify, ShareMode::DenyNone, file);
  if (result) result = file->GetLastWrite(lastWrite);
  return result ? file->SetLastWrite(change(lastWrite)) : result;
}

SysResult Win32Entries::Delete(std::string_view path) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const DWORD attributes = AttributesOf(native);
  // Asked for here, because newer releases of the system delete read-only files.
  if (HasAll(attributes, FILE_ATTRIBUTE_READONLY)) return SysResult::Failure(Win32Error::AccessDenied);
  if (IsFolderLink(native, attributes)) return ResultOf(RemoveDirectoryW(native.c_str()));
  return ResultOf(DeleteFileW(native.c_str()));
}
