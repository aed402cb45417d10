#include "host/log/LogOutput.h"

#include <utility>

#include "platform/Console.h"

LogOutput::LogOutput(OutputStream& stream, std::function<void()> onFailure)
    : stream_(stream), onFailure_(std::move(onFailure)) {}

void LogOutput::Write(std::string_view bytes) {
  if (Failed() || bytes.empty()) return;
  const SysResult written = stream_.Write(bytes);
  if (written.ok) return;
  result_ = written;
  if (onFailure_) onFailure_();
}
