#pragma once

#include "platform/Console.h"
#include "platform/win32/system/Win32Streams.h"

class Win32Console final : public Console {
 public:
  Win32Console();

  OutputStream& StandardOutput() override { return output_; }
  OutputStream& StandardError() override { return error_; }
  OutputStream& Dialog() override;
  std::unique_ptr<OutputStream> OpenFile(std::string_view path, SysResult& result) override;
  bool InputIsTerminal() override;
  bool OutputIsTerminal() override { return output_.IsTerminal(); }
  int OutputWidth() override;
  InputLine ReadLine(Echo echo, StopEvent& stop) override;
  std::unique_ptr<InterruptGuard> OnInterrupt(std::function<void()> handler) override;

 private:
  bool ReadMore();

  Win32StandardStream output_, error_;
  std::string pending_;  // input read and not handed out yet
};
