#include "support/OsFixture.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <windows.h>

#include "gtest/gtest.h"

#include "platform/win32/system/Win32Text.h"

namespace {

// A crash or a missing DLL ends the test instead of asking in a box; the programs that it starts inherit it.
[[maybe_unused]] const UINT kErrorMode =
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);

std::wstring Wide(const std::string& text) { return ToWide(text).value(); }

constexpr uint32_t kWritable = 0200;

}  // namespace

void MakeLink(const std::string& target, const std::string& path) {
  constexpr DWORD kUnprivileged = 2;  // for developers
  const DWORD attributes = GetFileAttributesW(Wide(target).c_str());
  const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const DWORD flags = kUnprivileged | (isFolder ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0);
  ASSERT_TRUE(CreateSymbolicLinkW(Wide(path).c_str(), Wide(target).c_str(), flags)) << path;
}

void SetMode(const std::string& path, uint32_t mode) {
  const DWORD attributes =
      GetFileAttributesW(Wide(path).c_str()) & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
  const DWORD readOnly = (mode & kWritable) != 0 ? 0 : FILE_ATTRIBUTE_READONLY;
  ASSERT_TRUE(SetFileAttributesW(Wide(path).c_str(), attributes | readOnly)) << path;
}

uint32_t ModeOf(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
  EXPECT_NE(attributes, INVALID_FILE_ATTRIBUTES) << path;
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? 0444 : 0444 | kWritable;
}

bool StoresAttributes(const std::string& /*folder*/) { return true; }

ExclusiveOpen::ExclusiveOpen(const std::string& path) : handle_(-1) {
  EXPECT_EQ(_wsopen_s(&handle_, Wide(path).c_str(), _O_RDWR | _O_BINARY, _SH_DENYRW, 0), 0) << path;
}

ExclusiveOpen::~ExclusiveOpen() { _close(handle_); }

void RemoveRegistryKey(const std::string& path) { RegDeleteTreeW(HKEY_CURRENT_USER, Wide(path).c_str()); }

void SendInterrupt() {
  // A console of the test's own: whoever runs the tests must not be interrupted too.
  [[maybe_unused]] static const BOOL kOwnConsole = FreeConsole() && AllocConsole();
  GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
}

void SetVariable(const std::string& name, const std::optional<std::string>& value) {
  SetEnvironmentVariableW(Wide(name).c_str(), value ? Wide(*value).c_str() : nullptr);
}

bool ProcessRuns(unsigned long number) {
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, number);
  const bool runs = process && WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  if (process) CloseHandle(process);
  return runs;
}
