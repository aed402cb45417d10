#include "platform/win32/files/Win32OpenFile.h"

#include <algorithm>

#include "base/WindowsPath.h"
#include "platform/CopyBytes.h"
#include "platform/win32/files/Win32Contents.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Time.h"

namespace {

LARGE_INTEGER Large(uint64_t value) {
  LARGE_INTEGER large{};
  large.QuadPart = static_cast<LONGLONG>(value);
  return large;
}

class Win32OpenFile final : public ::OpenFile {
 public:
  explicit Win32OpenFile(Handle file) : file_(std::move(file)) {}

  SysResult Read(std::span<char> buffer, size_t& count) override {
    DWORD got = 0;
    const BOOL read = ReadFile(file_.Get(), buffer.data(), Part(buffer.size()), &got, nullptr);
    count = got;
    return ResultOf(read);
  }

  SysResult Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      DWORD written = 0;
      if (!WriteFile(file_.Get(), bytes.data(), Part(bytes.size()), &written, nullptr)) return LastFailure();
      bytes.remove_prefix(written);
    }
    return {};
  }

  SysResult CopyFrom(OpenFile& source, uint64_t most, uint64_t& count) override {
    return CopyBytes(source, *this, most, count);
  }

  SysResult Seek(uint64_t position) override {
    return ResultOf(SetFilePointerEx(file_.Get(), Large(position), nullptr, FILE_BEGIN));
  }

  SysResult GetSize(uint64_t& size) override {
    LARGE_INTEGER found{};
    if (!GetFileSizeEx(file_.Get(), &found)) return LastFailure();
    size = static_cast<uint64_t>(found.QuadPart);
    return {};
  }

  SysResult SetSize(uint64_t size) override {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile = Large(size);
    return ResultOf(SetFileInformationByHandle(file_.Get(), FileEndOfFileInfo, &end, sizeof end));
  }

  SysResult GetLastWrite(TDateTime& local) override {
    FILETIME written{};
    if (!GetFileTime(file_.Get(), nullptr, nullptr, &written)) return LastFailure();
    local = ToLocal(written);
    return {};
  }

  SysResult SetLastWrite(TDateTime local) override {
    const FILETIME written = FromLocal(local);
    return ResultOf(SetFileTime(file_.Get(), nullptr, nullptr, &written));
  }

 private:
  /// What one call of the system takes.
  static DWORD Part(size_t size) { return static_cast<DWORD>(std::min(size, size_t{1} << 30)); }

  Handle file_;
};

DWORD Shared(ShareMode share) {
  switch (share) {
    case ShareMode::DenyAll:
      return 0;
    case ShareMode::DenyWrite:
      return FILE_SHARE_READ;
    case ShareMode::DenyNone:
      break;
  }
  return FILE_SHARE_READ | FILE_SHARE_WRITE;
}

}  // namespace

SysResult Win32Contents::Open(std::string_view path, OpenMode mode, ShareMode share,
                              std::unique_ptr<class OpenFile>& file) {
  std::wstring native;
  if (const SysResult result = NativePath(path, native); !result) return result;
  const DWORD access = mode == OpenMode::Read ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
  // A file that is there is emptied afterwards: told to make it anew, the system refuses a hidden one.
  const DWORD disposition = mode == OpenMode::Create ? OPEN_ALWAYS : OPEN_EXISTING;
  Handle handle(CreateFileW(native.c_str(), access, Shared(share), nullptr, disposition,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle) return LastFailure();
  if (GetFileType(handle.Get()) != FILE_TYPE_DISK) return SysResult::Failure(Win32Error::AccessDenied);
  if (mode == OpenMode::Create && !SetEndOfFile(handle.Get())) return LastFailure();
  file = std::make_unique<Win32OpenFile>(std::move(handle));
  return {};
}

std::unique_ptr<class OpenFile> TakeOpen(Handle file) {
  return std::make_unique<Win32OpenFile>(std::move(file));
}
