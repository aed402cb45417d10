#include "platform/win32/system/Win32Disk.h"

#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"

/// The system takes folders only: of a file it is the one that holds it.
SysResult Win32Disk::GetSpace(std::string_view path, DiskSpace& space) {
  const NoErrorBoxes noBoxes;
  std::wstring native;
  if (const SysResult named = NativePath(path, native); !named) return named;
  const DWORD attributes = GetFileAttributesW(native.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return LastFailure();
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) native.erase(native.find_last_of(L'\\') + 1);
  ULARGE_INTEGER free{}, total{};
  const SysResult result = ResultOf(GetDiskFreeSpaceExW(native.c_str(), &free, &total, nullptr));
  space = {free.QuadPart, total.QuadPart};
  return result;
}
