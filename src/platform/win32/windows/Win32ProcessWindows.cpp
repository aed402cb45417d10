#include "platform/win32/windows/Win32ProcessWindows.h"

#include "platform/win32/system/Win32Api.h"

namespace {

struct Search {
  DWORD processId;
  HWND found = nullptr;
};

/// Answers whether the search goes on.
BOOL CALLBACK LookAt(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (GetWindow(window, GW_OWNER) != nullptr || !IsWindowVisible(window)) return TRUE;
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  if (processId != search.processId) return TRUE;
  search.found = window;
  return FALSE;
}

class OpenedProcess final : public RunningProcess {
 public:
  explicit OpenedProcess(HANDLE handle) : handle_(handle) {}

  // Not a wait on the handle, which asks for one more right than this needs.
  bool EndsWithin(uint32_t milliseconds) override {
    Sleep(milliseconds);
    DWORD code = 0;
    return !GetExitCodeProcess(handle_.Get(), &code) || code != STILL_ACTIVE;
  }
  void Terminate() override { TerminateProcess(handle_.Get(), 0); }

 private:
  const Handle handle_;
};

}  // namespace

std::optional<WindowId> Win32ProcessWindows::FindMainWindow(uint32_t processId) {
  Search search{processId};
  EnumWindows(LookAt, reinterpret_cast<LPARAM>(&search));
  if (search.found == nullptr) return {};
  return WindowId{reinterpret_cast<uintptr_t>(search.found)};
}

void Win32ProcessWindows::Post(WindowId window, WindowMessage message) {
  const auto handle = reinterpret_cast<HWND>(static_cast<uintptr_t>(window));
  PostMessageW(handle, message == WindowMessage::Close ? WM_CLOSE : WM_QUIT, 0, 0);
}

std::unique_ptr<RunningProcess> Win32ProcessWindows::OpenProcess(uint32_t processId) {
  const HANDLE handle = ::OpenProcess(PROCESS_TERMINATE | PROCESS_QUERY_INFORMATION, FALSE, processId);
  return handle != nullptr ? std::make_unique<OpenedProcess>(handle) : nullptr;
}
