#include <atomic>
#include <string>

#include "platform/win32/Win32Api.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32Path.h"
#include "platform/win32/Win32Streams.h"

namespace {

/// A new file beside the target; deleted unless it took the target's place.
class NewFile {
 public:
  NewFile() = default;
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (!name_.empty()) DeleteFileW(name_.c_str());
  }

  SysResult Create(const std::wstring& target, std::string_view contents);
  SysResult TakePlaceOf(const std::wstring& target, DWORD attributes);

 private:
  std::wstring name_;
};

SysResult NewFile::Create(const std::wstring& target, std::string_view contents) {
  static std::atomic<unsigned> counter;
  const std::wstring folder = target.substr(0, target.find_last_of(L'\\') + 1);
  for (;;) {
    const std::wstring name = folder + L"~vek" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                              std::to_wstring(++counter) + L".tmp";
    const Handle file(
        CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
      const SysResult result = LastFailure();
      if (result.code == Win32Error::FileExists) continue;
      return result;
    }
    name_ = name;
    if (const SysResult result = WriteAll(file.Get(), contents); !result) return result;
    // On the disk before the rename is: a power failure must not leave an empty file under the old name.
    return ResultOf(FlushFileBuffers(file.Get()));
  }
}

SysResult NewFile::TakePlaceOf(const std::wstring& target, DWORD attributes) {
  const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
  // Keeps the access list, the creation time and the streams as well, where the file system can.
  if (isThere && ReplaceFileW(target.c_str(), name_.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                              nullptr, nullptr)) {
    SetFileAttributesW(target.c_str(), attributes);
    name_.clear();
    return {};
  }
  if (isThere) SetFileAttributesW(name_.c_str(), attributes);
  if (!MoveFileExW(name_.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING)) return LastFailure();
  name_.clear();
  return {};
}

/// Opens an existing file just as far as replacing it needs: refused while another program holds it.
Handle OpenTarget(const std::wstring& native) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return Handle(CreateFileW(native.c_str(), DELETE | GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

/// The file in its own spelling, where a link leads to in the end; the path itself when that cannot be told.
std::wstring FinalPath(const Handle& file, const std::wstring& native) {
  std::wstring target(32768, L'\0');
  const DWORD length =
      GetFinalPathNameByHandleW(file.Get(), target.data(), static_cast<DWORD>(target.size()), 0);
  if (length == 0 || length >= target.size()) return native;
  target.resize(length);
  return target;
}

}  // namespace

SysResult Win32Files::Replace(std::string_view path, std::string_view contents) {
  std::wstring target;
  if (const SysResult result = NativePath(path, target); !result) return result;
  DWORD attributes = GetFileAttributesW(target.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    const Handle file = OpenTarget(target);
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
