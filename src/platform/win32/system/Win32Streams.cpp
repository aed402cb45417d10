#include "platform/win32/system/Win32Streams.h"

#include <algorithm>

#include "platform/win32/system/Win32Text.h"

SysResult WriteAll(HANDLE file, std::string_view bytes) {
  constexpr size_t kBlock = size_t{1} << 24;
  while (!bytes.empty()) {
    DWORD count = 0;
    if (!WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kBlock)), &count, nullptr)) {
      const SysResult result = LastFailure();
      // The reader went away: one code for it, whichever moment the system noticed it in.
      return GetLastError() == ERROR_NO_DATA ? SysResult::Failure(Win32Error::BrokenPipe) : result;
    }
    bytes.remove_prefix(count);
  }
  return {};
}

namespace {

SysResult WriteToConsole(HANDLE console, std::wstring_view text) {
  constexpr size_t kBlock = 8192;  // older consoles refuse more than 64 KB
  while (!text.empty()) {
    DWORD count = 0;
    const auto block = static_cast<DWORD>(std::min(text.size(), kBlock));
    if (!WriteConsoleW(console, text.data(), block, &count, nullptr)) return LastFailure();
    text.remove_prefix(count);
  }
  return {};
}

}  // namespace

Win32StandardStream::Win32StandardStream(DWORD which) : handle_(GetStdHandle(which)) {
  isConsole_ = GetConsoleMode(handle_, &modeBefore_) != 0;
  hasColours_ = isConsole_ && SetConsoleMode(handle_, modeBefore_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

Win32StandardStream::~Win32StandardStream() {
  if (hasColours_) SetConsoleMode(handle_, modeBefore_);
}

SysResult Win32StandardStream::Write(std::string_view bytes) {
  return isConsole_ ? WriteToConsole(handle_, ToWideShown(bytes)) : WriteAll(handle_, bytes);
}

SysResult Win32FileStream::Write(std::string_view bytes) { return WriteAll(file_.Get(), bytes); }

SysResult Win32FileStream::WriteAt(uint64_t position, std::string_view bytes) {
  LARGE_INTEGER place;
  place.QuadPart = static_cast<LONGLONG>(position);
  if (!SetFilePointerEx(file_.Get(), place, nullptr, FILE_BEGIN)) return LastFailure();
  return WriteAll(file_.Get(), bytes);
}
