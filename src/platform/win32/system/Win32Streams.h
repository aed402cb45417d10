#pragma once

#include "platform/Console.h"
#include "platform/win32/system/Win32Api.h"

/// Writes all bytes to a file or a pipe.
SysResult WriteAll(HANDLE file, std::string_view bytes);

/// Standard output or standard error. A console gets wide text, so that every character shows whatever its
/// code page is; pipes and files get the bytes.
class Win32StandardStream final : public OutputStream {
 public:
  explicit Win32StandardStream(DWORD which);
  Win32StandardStream(const Win32StandardStream&) = delete;
  Win32StandardStream& operator=(const Win32StandardStream&) = delete;
  ~Win32StandardStream() override;

  SysResult Write(std::string_view bytes) override;

  bool IsConsole() const { return isConsole_; }

  /// Whether it is a console that understands colour sequences.
  bool IsTerminal() const { return hasColours_; }
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
  DWORD modeBefore_ = 0;
  bool isConsole_ = false, hasColours_ = false;
};

/// A file being written.
class Win32FileStream final : public OutputStream {
 public:
  explicit Win32FileStream(Handle file) : file_(std::move(file)) {}
  SysResult Write(std::string_view bytes) override;
  bool CanRewrite() override { return GetFileType(file_.Get()) == FILE_TYPE_DISK; }
  SysResult WriteAt(uint64_t position, std::string_view bytes) override;

 private:
  Handle file_;
};
