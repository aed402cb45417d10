#pragma once

#include <string_view>

#include "platform/OutputLines.h"
#include "platform/Processes.h"
#include "platform/win32/system/Win32Api.h"

/// One output stream of a program: a pipe that is read ahead while others are waited for.
class Win32ProcessPipe {
 public:
  using Deliver = void (ProcessOutput::*)(std::string_view line);
  explicit Win32ProcessPipe(Deliver deliver) : deliver_(deliver) {}
  ~Win32ProcessPipe() { CancelRead(); }
  Win32ProcessPipe(const Win32ProcessPipe&) = delete;
  Win32ProcessPipe& operator=(const Win32ProcessPipe&) = delete;

  SysResult Open();
  HANDLE WriteEnd() const { return write_.Get(); }
  void CloseWriteEnd() { write_ = Handle(); }

  /// Begins to read; Ready is signalled when something came.
  void BeginRead();
  bool IsReading() const { return reading_; }
  HANDLE Ready() const { return ready_.Get(); }

  /// Hands over the lines that came, and begins to read again.
  void Receive(ProcessOutput& output);

  /// Hands over what the program wrote before it ended. Others may hold the pipe and go on writing.
  void Drain(ProcessOutput& output);

 private:
  size_t EndRead();
  size_t CancelRead();
  void Hand(ProcessOutput& output, size_t count);

  const Deliver deliver_;
  Handle read_, write_, ready_;
  OVERLAPPED overlapped_{};
  bool reading_ = false;
  OutputLines lines_;
};
