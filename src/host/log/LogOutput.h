#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/Win32Error.h"

class OutputStream;

/// Where a log goes. A failed write (a full disk, a closed pipe) is final: what follows is dropped, and
/// `onFailure` is called once so that the build can end. Each call is written at once unless the output is
/// held back.
class LogOutput {
 public:
  LogOutput(OutputStream& stream, std::function<void()> onFailure);

  void Write(std::string_view bytes);

  /// For what is not only added to, see OutputStream; such writes are not held back.
  bool CanRewrite() const;
  void WriteAt(uint64_t position, std::string_view bytes);
  void Hold(bool held);
  bool Failed() const { return !result_.ok; }
  Win32Error FailureCode() const { return result_.code; }

 private:
  void WriteNow(std::string_view bytes);
  void Settle(SysResult written);

  OutputStream& stream_;
  std::function<void()> onFailure_;
  SysResult result_;
  bool held_ = false;
  std::string pending_;
};
