#include "platform/win32/system/Win32Environment.h"

#include <random>

#include "base/WindowsPath.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"

namespace {

/// Calls `get(buffer, size)` with a larger buffer until the answer fits; empty when the call fails.
template <class Get>
std::wstring Answer(Get get) {
  for (DWORD size = MAX_PATH;; size *= 2) {
    std::wstring text(size, L'\0');
    const DWORD length = get(text.data(), size);
    if (length >= size) continue;
    text.resize(length);
    return text;
  }
}

/// As folders are answered: without a trailing delimiter, except for the root of a drive.
std::string Folder(std::wstring_view native) {
  const std::string path = ShownPath(native);
  const std::string_view trimmed = WithoutTrailingDelimiter(path);
  return std::string(trimmed.ends_with(':') ? std::string_view(path) : trimmed);
}

/// The folder for temporary files. Newer systems keep one apart for services.
DWORD GetTempFolder(wchar_t* buffer, DWORD size) {
  using Function = DWORD(WINAPI*)(DWORD, LPWSTR);
  static const auto newer = reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetTempPath2W")));
  return newer ? newer(size, buffer) : GetTempPathW(size, buffer);
}

}  // namespace

std::optional<std::string> Win32Environment::Variable(std::string_view name) {
  const auto wide = ToWide(name);
  if (!wide) return std::nullopt;
  Win32Error error{};
  const std::wstring value = Answer([&](wchar_t* buffer, DWORD size) {
    SetLastError(ERROR_SUCCESS);  // an empty value answers 0 as well
    const DWORD length = GetEnvironmentVariableW(wide->c_str(), buffer, size);
    error = LastError();
    return length;
  });
  if (value.empty() && error != Win32Error::Success) return std::nullopt;
  return FromWide(value);
}

SysResult Win32Environment::Export(std::string_view name, const std::optional<std::string>& text) {
  const auto wideName = ToWide(name), wideText = ToWide(text.value_or(""));
  if (!wideName || !wideText || wideText->find(L'\0') != std::wstring::npos) {
    return SysResult::Failure(Win32Error::InvalidParameter);
  }
  own_.emplace(name, OwnVariable(std::string(name)));
  return ResultOf(SetEnvironmentVariableW(wideName->c_str(), text ? wideText->c_str() : nullptr));
}

/// A variable of the environment that this program was started with.
std::optional<std::string> Win32Environment::OwnVariable(const std::string& name) {
  const auto own = own_.find(name);
  return own != own_.end() ? own->second : Variable(name);
}

std::string Win32Environment::CurrentFolder() {
  return Folder(Answer([](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); }));
}

SysResult Win32Environment::SetCurrentFolder(std::string_view path) {
  std::wstring folder;
  if (const SysResult result = AbsolutePath(path, folder); !result) return result;
  return ResultOf(SetCurrentDirectoryW(folder.c_str()));
}

std::string Win32Environment::FullPath(std::string_view path) {
  std::wstring absolute;
  return AbsolutePath(path.empty() ? "." : path, absolute) ? Folder(absolute) : std::string(path);
}

char Win32Environment::PathDelimiter(std::string_view /*path*/) { return '\\'; }

std::string Win32Environment::NativePath(std::string_view path) { return WithDelimiters(path, '\\'); }

std::string Win32Environment::TempFolder() {
  const std::wstring folder = Answer(GetTempFolder);
  // The variable that it comes from may hold short names.
  const std::wstring spelled =
      Answer([&](wchar_t* buffer, DWORD size) { return GetLongPathNameW(folder.c_str(), buffer, size); });
  return Folder(spelled.empty() ? folder : spelled);
}

std::string Win32Environment::SystemFolder() {
  return Folder(Answer([](wchar_t* buffer, DWORD size) { return GetSystemDirectoryW(buffer, size); }));
}

uint32_t Win32Environment::RandomNumber() { return std::random_device()(); }

std::string Win32Environment::HomeFolder() { return OwnVariable("USERPROFILE").value_or(""); }

StringList Win32Environment::ReservedFolders() {
  const std::string windows =
      Folder(Answer([](wchar_t* buffer, DWORD size) { return GetSystemWindowsDirectoryW(buffer, size); }));
  StringList folders{windows};
  for (const char* name : {"Program Files", "Program Files (x86)", "ProgramData", "Users",
                           "Documents and Settings", "Recovery", "System Volume Information"}) {
    folders.push_back(windows.substr(0, 3) + name);
  }
  return folders;
}

std::string Win32Environment::DataFolder() {
  const auto local = OwnVariable("LOCALAPPDATA");
  return WithTrailingDelimiter(local ? *local : TempFolder(), '\\') + "vekrun";
}

std::string Win32Environment::ProgramFolder() {
  const std::wstring program =
      Answer([](wchar_t* buffer, DWORD size) { return GetModuleFileNameW(nullptr, buffer, size); });
  return std::string(DirectoryPart(ShownPath(program)));
}

std::string Win32Environment::CommandInterpreter() {
  const auto named = Variable("COMSPEC");
  return named ? *named : WithTrailingDelimiter(SystemFolder(), '\\') + "cmd.exe";
}
