#include "platform/win32/files/Win32NewFile.h"

#include "platform/win32/files/Win32TemporaryName.h"
#include "platform/win32/system/Win32Streams.h"

namespace {

SysResult WriteNew(const std::wstring& name, std::string_view contents) {
  const Handle file(
      CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return LastFailure();
  if (const SysResult result = WriteAll(file.Get(), contents); !result) return result;
  // On the disk before the rename is: a power failure must not leave an empty file under the old name.
  return ResultOf(FlushFileBuffers(file.Get()));
}

}  // namespace

Handle OpenToReplace(const std::wstring& native) {
  return Handle(CreateFileW(native.c_str(), DELETE | GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::wstring FinalPath(const Handle& file, const std::wstring& native) {
  std::wstring target(32768, L'\0');
  const DWORD length =
      GetFinalPathNameByHandleW(file.Get(), target.data(), static_cast<DWORD>(target.size()), 0);
  if (length == 0 || length >= target.size()) return native;
  target.resize(length);
  return target;
}

NewFile::~NewFile() {
  if (name_.empty()) return;
  SetFileAttributesW(name_.c_str(), FILE_ATTRIBUTE_NORMAL);
  DeleteFileW(name_.c_str());
}

SysResult NewFile::Create(const std::wstring& target, std::string_view contents) {
  return CreateBy(target, [contents](const std::wstring& name) { return WriteNew(name, contents); });
}

SysResult NewFile::CreateBy(const std::wstring& target, const Make& make) {
  const std::wstring folder = target.substr(0, target.find_last_of(L'\\') + 1);
  SweepOnce(folder);
  for (;;) {
    const std::wstring name = folder + TemporaryName();
    const SysResult made = make(name);
    if (!made && made.code == Win32Error::FileExists) continue;
    name_ = name;
    return made;
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
  return KeepAs(target, MOVEFILE_REPLACE_EXISTING);
}

SysResult NewFile::KeepAs(const std::wstring& target, DWORD flags) {
  if (!MoveFileExW(name_.c_str(), target.c_str(), flags)) return LastFailure();
  name_.clear();
  return {};
}
