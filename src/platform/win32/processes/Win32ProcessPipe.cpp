#include "platform/win32/processes/Win32ProcessPipe.h"

#include <algorithm>
#include <atomic>
#include <string>

#include "base/Text.h"
#include "platform/win32/processes/Win32ProcessLaunch.h"
#include "platform/win32/system/Win32Text.h"

namespace {

/// Anonymous pipes cannot be read ahead, so this one has a name, which no other takes.
std::wstring NewName() {
  static std::atomic<unsigned> count = 0;
  LARGE_INTEGER ticks{};
  QueryPerformanceCounter(&ticks);
  return L"\\\\.\\pipe\\vekrun." + std::to_wstring(GetCurrentProcessId()) + L'.' + std::to_wstring(++count) +
         L'.' + std::to_wstring(ticks.QuadPart);
}

/// Programs that know no UTF-8 write in the code page of consoles.
std::string FromConsole(std::string_view line) {
  std::wstring wide(line.size(), L'\0');
  const int size = static_cast<int>(line.size());
  wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_OEMCP, 0, line.data(), size, wide.data(), size)));
  return FromWide(wide);
}

}  // namespace

SysResult Win32ProcessPipe::Open() {
  constexpr DWORD kBuffer = 65536;
  const std::wstring name = NewName();
  read_ = Handle(CreateNamedPipeW(
      name.c_str(), PIPE_ACCESS_INBOUND | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
      PIPE_TYPE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, kBuffer, kBuffer, 0, nullptr));
  if (!read_) return LastFailure();
  write_ = Handle(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!write_) return LastFailure();
  ready_ = OwnedUnlessNull(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  return ready_ ? SysResult() : LastFailure();
}

void Win32ProcessPipe::BeginRead() {
  overlapped_ = {};
  overlapped_.hEvent = ready_.Get();
  reading_ = ReadFile(read_.Get(), lines_.Room(), OutputLines::kReadSize, nullptr, &overlapped_) ||
             GetLastError() == ERROR_IO_PENDING;
}

/// Waits for the read that was begun and answers the number of bytes that came; 0 at the end.
size_t Win32ProcessPipe::EndRead() {
  DWORD count = 0;
  if (!std::exchange(reading_, false)) return 0;
  return GetOverlappedResult(read_.Get(), &overlapped_, &count, TRUE) ? count : 0;
}

/// Ends the read that was begun; something may have come all the same.
size_t Win32ProcessPipe::CancelRead() {
  if (reading_) CancelIoEx(read_.Get(), &overlapped_);
  return EndRead();
}

void Win32ProcessPipe::Hand(ProcessOutput& output, size_t count) {
  const auto deliver = [&](std::string_view line) {
    if (IsUtf8(line)) return (output.*deliver_)(line);
    (output.*deliver_)(FromConsole(line));
  };
  const OutputBurst burst(output);
  count > 0 ? lines_.Take(count, deliver) : lines_.Finish(deliver);
}

void Win32ProcessPipe::Receive(ProcessOutput& output) {
  const size_t count = EndRead();
  if (count == 0) return;
  Hand(output, count);
  BeginRead();
}

void Win32ProcessPipe::Drain(ProcessOutput& output) {
  if (const size_t count = CancelRead(); count > 0) Hand(output, count);
  DWORD waiting = 0;
  PeekNamedPipe(read_.Get(), nullptr, 0, nullptr, &waiting, nullptr);
  for (size_t left = waiting; left > 0;) {
    BeginRead();
    const size_t count = EndRead();
    if (count == 0) break;
    Hand(output, count);
    left -= std::min(left, count);
  }
  Hand(output, 0);
}
