#include "platform/win32/processes/Win32ProcessLaunch.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Text.h"

namespace {

Handle OpenNothing(DWORD access) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return Handle(
      CreateFileW(L"NUL", access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr));
}

/// What the program is given: a handle of its own, or nothing where there is none to give.
Handle Inheritable(HANDLE handle) {
  HANDLE copy = nullptr;
  const HANDLE own = GetCurrentProcess();
  if (handle == INVALID_HANDLE_VALUE) handle = GetStdHandle(STD_ERROR_HANDLE);
  if (handle == nullptr || !DuplicateHandle(own, handle, own, &copy, 0, TRUE, DUPLICATE_SAME_ACCESS)) {
    return OpenNothing(GENERIC_WRITE);
  }
  return Handle(copy);
}

/// Names the only handles that the program inherits; others may be open for inheritance just now.
class InheritedHandles {
 public:
  explicit InheritedHandles(std::array<HANDLE, 3>& handles) {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    memory_ = std::make_unique<char[]>(size);
    auto* const list = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.get());
    if (!InitializeProcThreadAttributeList(list, 1, 0, &size)) return;
    list_ = list;
    UpdateProcThreadAttribute(list_, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles.data(), sizeof handles,
                              nullptr, nullptr);
  }
  ~InheritedHandles() {
    if (list_ != nullptr) DeleteProcThreadAttributeList(list_);
  }
  InheritedHandles(const InheritedHandles&) = delete;
  InheritedHandles& operator=(const InheritedHandles&) = delete;

  LPPROC_THREAD_ATTRIBUTE_LIST List() const { return list_; }

 private:
  std::unique_ptr<char[]> memory_;
  LPPROC_THREAD_ATTRIBUTE_LIST list_ = nullptr;
};

/// The program in quotes, then the parameters as they stand.
SysResult CommandLine(const ProcessSetup& setup, std::wstring& commandLine) {
  const auto program = ToWide(setup.program), parameters = ToWide(setup.parameters);
  if (!program || program->find(L'"') != std::wstring::npos)
    return SysResult::Failure(Win32Error::InvalidName);
  if (program->empty()) return SysResult::Failure(Win32Error::FileNotFound);
  if (!parameters || parameters->find(L'\0') != std::wstring::npos) {
    return SysResult::Failure(Win32Error::InvalidParameter);
  }
  commandLine = L'"' + *program + L'"';
  std::ranges::replace(commandLine, L'/', L'\\');
  if (!parameters->empty()) commandLine += L' ' + *parameters;
  return {};
}

DWORD CreationFlags(bool hideWindow) {
  const DWORD usual = CREATE_SUSPENDED | CREATE_NEW_PROCESS_GROUP | EXTENDED_STARTUPINFO_PRESENT;
  // Sharing this program's console shows nothing either, and there the program can be asked to end.
  const bool hasConsole = GetConsoleCP() != 0;
  return hideWindow && !hasConsole ? usual | CREATE_NO_WINDOW : usual;
}

}  // namespace

SysResult LaunchProcess(const ProcessSetup& setup, const ChildStreams& streams, LaunchedProcess& launched) {
  std::wstring commandLine, folder;
  if (const SysResult result = CommandLine(setup, commandLine); !result) return result;
  if (!setup.startDirectory.empty() && !AbsolutePath(setup.startDirectory, folder)) {
    return SysResult::Failure(Win32Error::Directory);
  }
  const Handle in = OpenNothing(GENERIC_READ), out = Inheritable(streams.out), err = Inheritable(streams.err);
  std::array<HANDLE, 3> handles{in.Get(), out.Get(), err.Get()};
  const InheritedHandles inherited(handles);

  STARTUPINFOEXW startup{};
  startup.StartupInfo.cb = sizeof startup;
  startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES | (setup.hideWindow ? STARTF_USESHOWWINDOW : 0);
  startup.StartupInfo.wShowWindow = SW_HIDE;
  startup.StartupInfo.hStdInput = in.Get();
  startup.StartupInfo.hStdOutput = out.Get();
  startup.StartupInfo.hStdError = err.Get();
  startup.lpAttributeList = inherited.List();
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CreationFlags(setup.hideWindow),
                      nullptr, folder.empty() ? nullptr : folder.c_str(), &startup.StartupInfo, &process)) {
    return LastFailure();
  }
  launched = {Handle(process.hProcess), Handle(process.hThread), process.dwProcessId};
  if (setup.announce) setup.announce(FromWide(commandLine));
  return {};
}
