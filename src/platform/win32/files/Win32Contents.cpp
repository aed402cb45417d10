#include "platform/win32/files/Win32Contents.h"

#include <algorithm>
#include <string>

#include "platform/ChangeContents.h"
#include "platform/win32/files/Win32FileTurn.h"
#include "platform/win32/files/Win32NewFile.h"
#include "platform/win32/files/Win32OpenFile.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"

namespace {

constexpr size_t kBlock = size_t{1} << 20;

SysResult ReadAll(HANDLE file, std::string& contents) {
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file, &size) && GetFileType(file) == FILE_TYPE_DISK) return LastFailure();
  contents.clear();
  for (size_t expected = static_cast<size_t>(size.QuadPart) + 1;;) {
    // One byte more than the file has, so that its end shows in the first read.
    const size_t before = contents.size();
    const size_t wanted = std::clamp(expected - std::min(expected, before), size_t{4096}, kBlock);
    contents.resize(before + wanted);
    DWORD count = 0;
    const BOOL read = ReadFile(file, contents.data() + before, static_cast<DWORD>(wanted), &count, nullptr);
    const SysResult result = ResultOf(read || GetLastError() == ERROR_BROKEN_PIPE);
    contents.resize(before + count);
    if (!read || count == 0) return result;
  }
}

bool IsFile(const Handle& file) { return GetFileType(file.Get()) == FILE_TYPE_DISK; }

Handle OpenToRead(const std::wstring& native) {
  return Handle(CreateFileW(native.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
}

/// A file whose contents are to be exchanged, links followed.
struct RewriteTarget {
  std::wstring name;
  DWORD attributes = INVALID_FILE_ATTRIBUTES;  // there is none yet
};

SysResult FindRewriteTarget(std::string_view path, RewriteTarget& target) {
  if (const SysResult result = NativePath(path, target.name); !result) return result;
  target.attributes = GetFileAttributesW(target.name.c_str());
  if (target.attributes == INVALID_FILE_ATTRIBUTES) return {};
  const Handle file = OpenToReplace(target.name);
  if (!file) return LastFailure();
  if (!IsFile(file)) return SysResult::Failure(Win32Error::NotSupported);
  target.name = FinalPath(file, target.name);
  target.attributes = GetFileAttributesW(target.name.c_str());
  // The system's own answer to these differs between its releases.
  constexpr DWORD kRefused = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY;
  return (target.attributes & kRefused) != 0 ? SysResult::Failure(Win32Error::AccessDenied) : SysResult();
}

class Win32NewContents final : public NewContents {
 public:
  explicit Win32NewContents(RewriteTarget target) : target_(std::move(target)) {}

  SysResult Create() {
    return new_.CreateBy(target_.name, [this](const std::wstring& name) {
      Handle file(CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
      if (!file) return LastFailure();
      handle_ = file.Get();
      file_ = TakeOpen(std::move(file));
      return SysResult();
    });
  }

  class OpenFile& File() override {
    return *file_;
  }

  SysResult Commit() override {
    // On the disk before the exchange is: a power failure must not leave an empty file under the old name.
    if (const SysResult flushed = ResultOf(FlushFileBuffers(handle_)); !flushed) return flushed;
    file_.reset();
    return new_.TakePlaceOf(target_.name, target_.attributes);
  }

 private:
  RewriteTarget target_;
  NewFile new_;
  HANDLE handle_ = nullptr;               // of the file below
  std::unique_ptr<class OpenFile> file_;  // goes first: an open file cannot be removed
};

}  // namespace

SysResult Win32Contents::ReadWhole(std::string_view path, std::string& contents) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const Handle file = OpenToRead(native);
  if (!file) return LastFailure();
  return IsFile(file) ? ReadAll(file.Get(), contents) : SysResult::Failure(Win32Error::NotSupported);
}

SysResult Win32Contents::ReadStream(std::string_view path, std::string& contents) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const Handle file = OpenToRead(native);
  return file ? ReadAll(file.Get(), contents) : LastFailure();
}

SysResult Win32Contents::Change(std::string_view path, const Edit& edit) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const FileTurn turn(native);
  return turn.Result() ? ChangeContents(*this, path, edit) : turn.Result();
}

SysResult Win32Contents::Replace(std::string_view path, std::string_view contents) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const FileTurn turn(native);
  if (!turn.Result()) return turn.Result();
  RewriteTarget target;
  if (const SysResult found = FindRewriteTarget(path, target); !found) return found;
  NewFile file;
  if (const SysResult result = file.Create(target.name, contents); !result) return result;
  return file.TakePlaceOf(target.name, target.attributes);
}

SysResult Win32Contents::Rewrite(std::string_view path, std::unique_ptr<NewContents>& contents) {
  RewriteTarget target;
  if (const SysResult found = FindRewriteTarget(path, target); !found) return found;
  auto made = std::make_unique<Win32NewContents>(std::move(target));
  const SysResult created = made->Create();
  if (created) contents = std::move(made);
  return created;
}
