#include "platform/win32/files/Win32Contents.h"

#include <algorithm>
#include <string>

#include "platform/win32/files/Win32NewFile.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"

namespace {

constexpr size_t kBlock = size_t{1} << 20;

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

SysResult Win32Contents::ReadWhole(std::string_view path, std::string& contents) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const Handle file(CreateFileW(native.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  return file ? ReadAll(file.Get(), contents) : LastFailure();
}

SysResult Win32Contents::Replace(std::string_view path, std::string_view contents) {
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
