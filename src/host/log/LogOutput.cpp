#include "host/log/LogOutput.h"

#include <utility>

#include "platform/Console.h"

namespace {

constexpr size_t kMostPending = size_t{256} << 10;

}  // namespace

LogOutput::LogOutput(OutputStream& stream, std::function<void()> onFailure)
    : stream_(stream), onFailure_(std::move(onFailure)) {}

void LogOutput::Write(std::string_view bytes) {
  if (!held_) return WriteNow(bytes);
  pending_ += bytes;
  if (pending_.size() < kMostPending) return;
  WriteNow(pending_);
  pending_.clear();
}

void LogOutput::Hold(bool held) {
  held_ = held;
  if (!held_) WriteNow(pending_);
  pending_.clear();
}

void LogOutput::WriteNow(std::string_view bytes) {
  if (Failed() || bytes.empty()) return;
  Settle(stream_.Write(bytes));
}

bool LogOutput::CanRewrite() const { return stream_.CanRewrite(); }

void LogOutput::WriteAt(uint64_t position, std::string_view bytes) {
  if (!Failed()) Settle(stream_.WriteAt(position, bytes));
}

void LogOutput::Settle(SysResult written) {
  if (written.ok) return;
  result_ = written;
  if (onFailure_) onFailure_();
}
