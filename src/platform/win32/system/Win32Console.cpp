#include "platform/win32/system/Win32Console.h"

#include "platform/Processes.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Text.h"

namespace {

/// While it lives the console does not show what is typed, if that is asked for.
class SilentConsole {
 public:
  explicit SilentConsole(Echo echo) : input_(GetStdHandle(STD_INPUT_HANDLE)) {
    isSilent_ = echo == Echo::Off && GetConsoleMode(input_, &modeBefore_) &&
                SetConsoleMode(input_, modeBefore_ & ~DWORD{ENABLE_ECHO_INPUT});
  }
  ~SilentConsole() {
    if (isSilent_) SetConsoleMode(input_, modeBefore_);
  }
  SilentConsole(const SilentConsole&) = delete;
  SilentConsole& operator=(const SilentConsole&) = delete;

 private:
  HANDLE input_;
  DWORD modeBefore_ = 0;
  bool isSilent_ = false;
};

}  // namespace

Win32Console::Win32Console() : output_(STD_OUTPUT_HANDLE), error_(STD_ERROR_HANDLE) {}

std::unique_ptr<OutputStream> Win32Console::OpenFile(std::string_view path, SysResult& result) {
  std::wstring native;
  result = NativePath(path, native);
  if (!result) return nullptr;
  // Not CREATE_ALWAYS: that is refused for a hidden file. Others may read along.
  Handle file(CreateFileW(native.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                          FILE_ATTRIBUTE_NORMAL, nullptr));
  result = file ? ResultOf(SetEndOfFile(file.Get())) : LastFailure();
  if (!result && result.code != Win32Error::InvalidParameter) return nullptr;  // a device has no end to set
  result = {};
  return std::make_unique<Win32FileStream>(std::move(file));
}

bool Win32Console::InputIsTerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

OutputStream& Win32Console::Dialog() { return !error_.IsConsole() && output_.IsConsole() ? output_ : error_; }

int Win32Console::OutputWidth() {
  constexpr int kUnknown = 80;
  for (const Win32StandardStream* stream : {&output_, &error_}) {
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (GetConsoleScreenBufferInfo(stream->Get(), &info)) return info.srWindow.Right - info.srWindow.Left + 1;
  }
  return kUnknown;
}

InputLine Win32Console::ReadLine(Echo echo, StopEvent& stop) {
  const Handle stopped(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  const Handle thread(OpenThread(THREAD_TERMINATE, FALSE, GetCurrentThreadId()));
  const StopEvent::Watch watch(stop, [&] {
    SetEvent(stopped.Get());
    CancelSynchronousIo(thread.Get());
  });
  const SilentConsole silence(echo);
  size_t end;
  while ((end = pending_.find('\n')) == std::string::npos) {
    const HANDLE handles[] = {stopped.Get(), GetStdHandle(STD_INPUT_HANDLE)};
    const bool isOver = InputIsTerminal() &&
                        WaitForMultipleObjects(std::size(handles), handles, FALSE, INFINITE) == WAIT_OBJECT_0;
    if (!isOver && ReadMore()) continue;
    pending_.clear();
    return {WaitForSingleObject(stopped.Get(), 0) == WAIT_OBJECT_0 ? InputState::Stopped : InputState::End};
  }
  InputLine line{InputState::Line, pending_.substr(0, end)};
  pending_.erase(0, end + 1);
  if (line.text.ends_with('\r')) line.text.pop_back();
  return line;
}

/// Reads once; false at the end of input.
bool Win32Console::ReadMore() {
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  DWORD count = 0;
  if (!InputIsTerminal()) {
    char bytes[4096];
    if (!ReadFile(input, bytes, sizeof bytes, &count, nullptr) || count == 0) return false;
    pending_.append(bytes, count);
    return true;
  }
  constexpr wchar_t kEndOfInput = 0x1A;  // Ctrl-Z at the start of a line
  wchar_t text[1024];
  if (!ReadConsoleW(input, text, std::size(text), &count, nullptr) || count == 0 || text[0] == kEndOfInput) {
    return false;
  }
  pending_ += FromWide({text, count});
  return true;
}
