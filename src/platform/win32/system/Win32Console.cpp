#include "platform/win32/system/Win32Console.h"

#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Text.h"

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

int Win32Console::OutputWidth() {
  constexpr int kUnknown = 80;
  CONSOLE_SCREEN_BUFFER_INFO info;
  if (!GetConsoleScreenBufferInfo(output_.Get(), &info)) return kUnknown;
  return info.srWindow.Right - info.srWindow.Left + 1;
}

std::optional<std::string> Win32Console::ReadLine() {
  size_t end;
  while ((end = pending_.find('\n')) == std::string::npos) {
    if (ReadMore()) continue;
    if (pending_.empty()) return std::nullopt;
    end = pending_.size();
    break;
  }
  std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  if (line.ends_with('\r')) line.pop_back();
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
