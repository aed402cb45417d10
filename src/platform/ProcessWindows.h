#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/RunningProcess.h"

/// A window by the system's own number.
enum class WindowId : uint64_t {};

enum class WindowMessage {
  Close,  // asks to close the window, which may ask its user or refuse
  Quit,   // has the program that the window belongs to end
};

/// The windows of other processes.
class ProcessWindows {
 public:
  virtual ~ProcessWindows() = default;

  /// The first window of the process, from the topmost down, that is visible and has no owner; nothing when
  /// there is none, and where there are no windows at all.
  virtual std::optional<WindowId> FindMainWindow(uint32_t processId) = 0;

  /// Sends the message and does not wait for what comes of it.
  virtual void Post(WindowId window, WindowMessage message) = 0;

  /// The process itself; null when there is none or it is out of reach.
  virtual std::unique_ptr<RunningProcess> OpenProcess(uint32_t processId) = 0;
};
