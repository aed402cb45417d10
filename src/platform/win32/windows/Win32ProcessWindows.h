#pragma once

#include "platform/ProcessWindows.h"

class Win32ProcessWindows final : public ProcessWindows {
 public:
  std::optional<WindowId> FindMainWindow(uint32_t processId) override;
  void Post(WindowId window, WindowMessage message) override;
  std::unique_ptr<RunningProcess> OpenProcess(uint32_t processId) override;
};
