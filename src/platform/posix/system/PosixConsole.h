#pragma once

#include "platform/Console.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/system/UniqueFd.h"

/// Writes to a descriptor that it owns, or to one of the standard streams.
class PosixStream final : public OutputStream {
 public:
  explicit PosixStream(int standardStream) : fd_(standardStream) {}
  explicit PosixStream(UniqueFd file) : owned_(std::move(file)), fd_(owned_.Get()) {}
  SysResult Write(std::string_view bytes) override;
  bool CanRewrite() override;
  SysResult WriteAt(uint64_t position, std::string_view bytes) override;

 private:
  UniqueFd owned_;
  int fd_;
};

class PosixConsole final : public Console {
 public:
  explicit PosixConsole(PosixPaths& paths);

  OutputStream& StandardOutput() override { return output_; }
  OutputStream& StandardError() override { return error_; }
  OutputStream& Dialog() override;
  std::unique_ptr<OutputStream> OpenFile(std::string_view path, SysResult& result) override;
  bool InputIsTerminal() override;
  bool OutputIsTerminal() override;
  int OutputWidth() override;
  InputLine ReadLine(Echo echo, StopEvent& stop) override;
  std::unique_ptr<InterruptGuard> OnInterrupt(std::function<void()> handler) override;

 private:
  InputLine TakeLine(size_t end);

  PosixPaths& paths_;
  PosixStream output_, error_;
  std::string input_;  // read, but not yet asked for
};
