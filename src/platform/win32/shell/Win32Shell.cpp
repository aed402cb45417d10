#include "platform/win32/shell/Win32Shell.h"

#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32ComScope.h"
#include "platform/win32/system/Win32Text.h"

// After the system's own header, which it needs.
#include <shellapi.h>

namespace {

class StartedProcess final : public RunningProcess {
 public:
  explicit StartedProcess(HANDLE handle) : handle_(handle) {}
  bool EndsWithin(uint32_t milliseconds) override {
    return WaitForSingleObject(handle_.Get(), milliseconds) != WAIT_TIMEOUT;
  }
  void Terminate() override { TerminateProcess(handle_.Get(), 0); }

 private:
  const Handle handle_;
};

const wchar_t* OrNull(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

}  // namespace

SysResult Win32Shell::Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) {
  std::wstring file, folder;
  if (const SysResult result = AbsolutePath(request.file, file); !result) return result;
  if (!request.folder.empty()) {
    if (const SysResult result = AbsolutePath(request.folder, folder); !result) return result;
  }
  const std::wstring verb = ToWideShown(request.verb), parameters = ToWideShown(request.parameters);
  const Win32ComScope com;  // what handles a document may be an object of the system's
  SHELLEXECUTEINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_DDEWAIT | SEE_MASK_FLAG_NO_UI;
  info.lpVerb = OrNull(verb);
  info.lpFile = file.c_str();
  info.lpParameters = OrNull(parameters);
  info.lpDirectory = OrNull(folder);
  info.nShow = SW_HIDE;
  if (!ShellExecuteExW(&info)) return LastFailure();
  if (request.announce) {
    const std::string rest = request.parameters.empty() ? "" : ' ' + request.parameters;
    request.announce('"' + FromWide(file) + '"' + rest);
  }
  if (info.hProcess != nullptr) process = std::make_unique<StartedProcess>(info.hProcess);
  return {};
}
