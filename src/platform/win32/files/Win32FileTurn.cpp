#include "platform/win32/files/Win32FileTurn.h"

#include <functional>

#include "base/Text.h"
#include "platform/win32/files/Win32NewFile.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Text.h"

namespace {

constexpr DWORD kPatience = 10000;  // milliseconds, where a turn takes few

/// A name for the file that no path is too long for. Two files that get the same one wait for each other.
std::wstring NameOf(const std::wstring& native) {
  const Handle file(CreateFileW(native.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  const std::string path = UpCase(ShownPath(file ? FinalPath(file, native) : native));
  return L"Local\\VekFile" + std::to_wstring(std::hash<std::string>()(path));
}

}  // namespace

FileTurn::FileTurn(const std::wstring& native)
    : mutex_(CreateMutexW(nullptr, FALSE, NameOf(native).c_str())) {
  const DWORD waited = WaitForSingleObject(mutex_, kPatience);
  isOurs_ = waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

FileTurn::~FileTurn() {
  if (isOurs_) ReleaseMutex(mutex_);
  CloseHandle(mutex_);
}
