#include <string>

#include "platform/win32/files/Win32Files.h"
#include "platform/win32/files/Win32NewFile.h"
#include "platform/win32/paths/Win32Path.h"

SysResult Win32Files::Replace(std::string_view path, std::string_view contents) {
  std::wstring target;
  if (const SysResult result = NativePath(path, target); !result) return result;
  DWORD attributes = GetFileAttributesW(target.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    const Handle file = OpenToReplace(target);
    if (!file) return LastFailure();
    target = FinalPath(file, target);
    attributes = GetFileAttributesW(target.c_str());
    // The system's own answer to these differs between its releases.
    if ((attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
      return SysResult::Failure(Win32Error::AccessDenied);
    }
  }
  NewFile file;
  if (const SysResult result = file.Create(target, contents); !result) return result;
  return file.TakePlaceOf(target, attributes);
}
