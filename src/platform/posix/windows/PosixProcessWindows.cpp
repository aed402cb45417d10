#include "platform/posix/windows/PosixProcessWindows.h"

#include "platform/posix/processes/PosixRunningProcess.h"
#include "platform/posix/windows/XServer.h"

std::optional<WindowId> PosixProcessWindows::FindMainWindow(uint32_t processId) {
  XServer server;
  if (!server || processId == 0) return {};
  for (const xcb_window_t window : server.ClientWindows()) {
    if (server.ProcessOf(window) == processId && !server.HasOwner(window)) return WindowId{window};
  }
  return {};
}

void PosixProcessWindows::Post(WindowId window, WindowMessage message) {
  XServer server;
  if (!server) return;
  const auto id = static_cast<xcb_window_t>(window);
  message == WindowMessage::Close ? server.AskToClose(id) : server.EndClientOf(id);
}

std::unique_ptr<RunningProcess> PosixProcessWindows::OpenProcess(uint32_t processId) {
  return PosixRunningProcess::Open(static_cast<pid_t>(processId));
}
