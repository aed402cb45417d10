#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/Win32Error.h"

class StopEvent;

/// Somewhere to write bytes to, unbuffered: the standard streams or a file.
class OutputStream {
 public:
  virtual ~OutputStream() = default;
  virtual SysResult Write(std::string_view bytes) = 0;

  /// Whether what was written can be written over: it can in a file that was opened here, and not in what
  /// goes on to somebody else.
  virtual bool CanRewrite() { return false; }
  virtual SysResult WriteAt(uint64_t /*position*/, std::string_view /*bytes*/) {
    return SysResult::Failure(Win32Error::NotSupported);
  }
};

/// The exit code of a process that the user has stopped.
inline constexpr int kStoppedByUser = 130;

/// Whether a terminal shows what is typed.
enum class Echo { On, Off };

/// A line that was typed, without its line break, or why there is none: the end of input (what was typed
/// before it is no answer), a stop, or a line longer than the terminal hands over.
enum class InputState { Line, End, Stopped, TooLong };
struct InputLine {
  InputState state;
  std::string text = {};
};

class Console {
 public:
  virtual ~Console() = default;

  virtual OutputStream& StandardOutput() = 0;
  virtual OutputStream& StandardError() = 0;

  /// Where the user who types reads: standard error, or standard output where only that is a terminal.
  virtual OutputStream& Dialog() = 0;

  /// A file opened for writing from its start, or null with the reason in `result`.
  virtual std::unique_ptr<OutputStream> OpenFile(std::string_view path, SysResult& result) = 0;

  virtual bool InputIsTerminal() = 0;
  virtual bool OutputIsTerminal() = 0;
  virtual int OutputWidth() = 0;  // columns; 80 when unknown

  /// One line of standard input. A terminal that was made silent for it shows what is typed again when the
  /// line is there, when `stop` ends the wait, and when this program is killed.
  virtual InputLine ReadLine(Echo echo, StopEvent& stop) = 0;

  /// Calls `handler` on a thread of its own at the first Ctrl-C (or a termination request, or when the
  /// terminal goes away); the second one ends the process with kStoppedByUser, and by force the program that
  /// it runs. One handler at a time; destroying the guard removes it.
  class InterruptGuard {
   public:
    virtual ~InterruptGuard() = default;
  };
  virtual std::unique_ptr<InterruptGuard> OnInterrupt(std::function<void()> handler) = 0;
};
