#pragma once

#include <cstdint>

/// A process of its own, held so that its number cannot come to mean another one.
class RunningProcess {
 public:
  virtual ~RunningProcess() = default;

  /// Waits for its end, at most so many milliseconds; false when it still runs.
  virtual bool EndsWithin(uint32_t milliseconds) = 0;

  /// Ends it by force.
  virtual void Terminate() = 0;
};
