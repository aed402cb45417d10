#include "platform/win32/files/Win32Files.h"

#include <algorithm>

#include "base/WindowsPath.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr size_t kBlock = size_t{1} << 20;

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

SysResult ReadAll(HANDLE file, std::string& contents) {
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file, &size)) return LastFailure();
  contents.clear();
  for (size_t expected = static_cast<size_t>(size.QuadPart) + 1;;) {
    // One byte more than the file has, so that its end shows in the first read.
    const size_t before = contents.size();
    const size_t wanted = std::clamp(expected - std::min(expected, before), size_t{4096}, kBlock);
    contents.resize(before + wanted);
    DWORD count = 0;
    const BOOL read = ReadFile(file, contents.data() + before, static_cast<DWORD>(wanted), &count, nullptr);
    const SysResult result = ResultOf(read);
    contents.resize(before + count);
    if (!read || count == 0) return result;
  }
}

}  // namespace

bool Win32Files::FileExists(std::string_view path) {
  std::wstring native;
  if (EndsInPathDelimiter(path) || !NativePath(path, native)) return false;
  const DWORD attributes = AttributesOf(native);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool Win32Files::FolderExists(std::string_view path) {
  std::wstring native;
  return NativePath(path, native) && HasAll(AttributesOf(native), FILE_ATTRIBUTE_DIRECTORY);
}

bool Win32Files::EntryExists(std::string_view path) {
  std::wstring native;
  if (HasWildcards(path) || !NativePath(path, native)) return false;
  if (native.ends_with(L":\\")) return FolderExists(path);  // a root has no name
  if (native.ends_with(L'\\')) native.pop_back();
  // The folder's own listing gives the spelling, and shows an entry whose deletion is pending.
  WIN32_FIND_DATAW data;
  const HANDLE search = FindFirstFileW(native.c_str(), &data);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return native.ends_with(data.cFileName);
}

std::optional<EntryIdentity> Win32Files::Identity(std::string_view path) {
  std::wstring native;
  if (!NativePath(path, native)) return {};
  const Handle entry(CreateFileW(native.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                 FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION found = {};
  if (!entry || !GetFileInformationByHandle(entry.Get(), &found)) return {};
  return EntryIdentity{found.dwVolumeSerialNumber,
                       uint64_t{found.nFileIndexHigh} << 32 | found.nFileIndexLow};
}

SysResult Win32Files::GetSize(std::string_view path, uint64_t& size) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  WIN32_FILE_ATTRIBUTE_DATA found = {};
  if (!GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &found)) return LastFailure();
  const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  size = isFolder ? 0 : uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
  return {};
}

SysResult Win32Files::GetAttributes(std::string_view path, uint32_t& attributes) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const DWORD found = AttributesOf(native);
  if (found == INVALID_FILE_ATTRIBUTES) return LastFailure();
  attributes = found;
  return {};
}

SysResult Win32Files::SetAttributes(std::string_view path, uint32_t attributes) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  return ResultOf(SetFileAttributesW(native.c_str(), attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes));
}

SysResult Win32Files::Delete(std::string_view path) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const DWORD attributes = AttributesOf(native);
  // Asked for here, because newer releases of the system delete read-only files.
  if (HasAll(attributes, FILE_ATTRIBUTE_READONLY)) return SysResult::Failure(Win32Error::AccessDenied);
  if (IsFolderLink(native, attributes)) return ResultOf(RemoveDirectoryW(native.c_str()));
  return ResultOf(DeleteFileW(native.c_str()));
}

SysResult Win32Files::CreateFolder(std::string_view path) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  return ResultOf(CreateDirectoryW(native.c_str(), nullptr));
}

SysResult Win32Files::CreateFolders(std::string_view path) {
  if (FolderExists(path)) return {};
  const SysResult created = CreateFolder(path);
  if (created.code == Win32Error::PathNotFound) {
    const std::string_view parent = ParentFolder(path);
    if (parent.empty() || parent.size() >= path.size()) return created;
    if (const SysResult result = CreateFolders(parent); !result) return result;
    return CreateFolders(path);
  }
  // Another program may have been quicker.
  return created.code == Win32Error::AlreadyExists && FolderExists(path) ? SysResult{} : created;
}

SysResult Win32Files::RemoveFolder(std::string_view path) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  if (HasAll(AttributesOf(native), FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) {
    return SysResult::Failure(Win32Error::AccessDenied);
  }
  return ResultOf(RemoveDirectoryW(native.c_str()));
}

SysResult Win32Files::ReadWhole(std::string_view path, std::string& contents) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const Handle file(CreateFileW(native.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  return file ? ReadAll(file.Get(), contents) : LastFailure();
}
