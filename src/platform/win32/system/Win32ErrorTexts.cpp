#include "platform/win32/system/Win32ErrorTexts.h"

#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"

namespace {

std::wstring Message(Win32Error code, DWORD language) {
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      static_cast<DWORD>(code), language, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::wstring message(text ? text : L"", length);
  LocalFree(text);
  return message;
}

}  // namespace

std::string Win32ErrorTexts::Text(Win32Error code) {
  // English, as the rest of the log is; not every installation has it.
  std::wstring message = Message(code, MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
  if (message.empty()) message = Message(code, 0);
  while (!message.empty() && message.back() <= L' ') message.pop_back();
  if (message.empty()) return "Unknown error " + std::to_string(static_cast<uint32_t>(code));
  return FromWide(message);
}
