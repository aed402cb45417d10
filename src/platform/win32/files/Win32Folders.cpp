#include "platform/win32/files/Win32Folders.h"

#include "base/WindowsPath.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"

namespace {

bool HasAll(DWORD attributes, DWORD wanted) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) == wanted;
}

}  // namespace

bool Win32Folders::Exists(std::string_view path) {
  std::wstring native;
  return NativePath(path, native) && HasAll(GetFileAttributesW(native.c_str()), FILE_ATTRIBUTE_DIRECTORY);
}

SysResult Win32Folders::Create(std::string_view path) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  return ResultOf(CreateDirectoryW(native.c_str(), nullptr));
}

SysResult Win32Folders::CreateWithParents(std::string_view path, std::string_view source) {
  if (Exists(path)) return {};
  const SysResult created = Create(path);
  if (created.code == Win32Error::PathNotFound) {
    const std::string_view parent = ParentFolder(path);
    if (parent.empty() || parent.size() >= path.size()) return created;
    if (const SysResult result = CreateWithParents(parent, source); !result) return result;
    return CreateWithParents(path, source);
  }
  // Another program may have been quicker.
  return created.code == Win32Error::AlreadyExists && Exists(path) ? SysResult{} : created;
}

SysResult Win32Folders::Remove(std::string_view path) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  if (HasAll(GetFileAttributesW(native.c_str()), FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) {
    return SysResult::Failure(Win32Error::AccessDenied);
  }
  return ResultOf(RemoveDirectoryW(native.c_str()));
}
