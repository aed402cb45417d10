#pragma once

#include "platform/ProcessWindows.h"

/// The windows of an X server; without one there are none.
class PosixProcessWindows final : public ProcessWindows {
 public:
  std::optional<WindowId> FindMainWindow(uint32_t processId) override;
  void Post(WindowId window, WindowMessage message) override;
  std::unique_ptr<RunningProcess> OpenProcess(uint32_t processId) override;
};
