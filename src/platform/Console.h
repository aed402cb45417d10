#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Win32Error.h"

/// Somewhere to write bytes to, unbuffered: the standard streams or a file.
class OutputStream {
 public:
  virtual ~OutputStream() = default;
  virtual SysResult Write(std::string_view bytes) = 0;
};

/// The exit code of a process that the user has stopped.
inline constexpr int kStoppedByUser = 130;

class Console {
 public:
  virtual ~Console() = default;

  virtual OutputStream& StandardOutput() = 0;
  virtual OutputStream& StandardError() = 0;

  /// A file opened for writing from its start, or null with the reason in `result`.
  virtual std::unique_ptr<OutputStream> OpenFile(std::string_view path, SysResult& result) = 0;

  virtual bool InputIsTerminal() = 0;
  virtual bool OutputIsTerminal() = 0;
  virtual int OutputWidth() = 0;  // columns; 80 when unknown

  /// One line of standard input without its line break; nothing at the end of input.
  virtual std::optional<std::string> ReadLine() = 0;

  /// Calls `handler` on a thread of its own at the first Ctrl-C (or a termination request, or when the
  /// terminal goes away); the second one ends the process with kStoppedByUser, and by force the program that
  /// it runs. One handler at a time; destroying the guard removes it.
  class InterruptGuard {
   public:
    virtual ~InterruptGuard() = default;
  };
  virtual std::unique_ptr<InterruptGuard> OnInterrupt(std::function<void()> handler) = 0;
};
