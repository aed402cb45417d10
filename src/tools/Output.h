#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Console.h"
#include "platform/Contents.h"

/// Lines for the console and for a log file. They are written in larger pieces; what is not yet written is by
/// Flush, and when the object goes.
class Output {
 public:
  explicit Output(Console& console) : console_(&console.StandardOutput()) {}
  ~Output() { Flush(); }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// From here on lines go to the file, and to the console only with `tees`.
  SysResult OpenLog(Contents& contents, std::string_view path, bool appends, bool tees);

  void Line(std::string_view text);
  void Flush();

 private:
  OutputStream* console_;
  std::unique_ptr<class OpenFile> log_;
  bool toConsole_ = true;
  std::string text_;
};
