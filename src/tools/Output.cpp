#include "tools/Output.h"

namespace {

constexpr size_t kPiece = 4096;

}  // namespace

SysResult Output::OpenLog(Contents& contents, std::string_view path, bool appends, bool tees) {
  const auto mode = appends ? OpenMode::Modify : OpenMode::Create;
  SysResult opened = contents.Open(path, mode, ShareMode::DenyNone, log_);
  if (opened.code == Win32Error::FileNotFound) {
    opened = contents.Open(path, OpenMode::Create, ShareMode::DenyNone, log_);
  }
  uint64_t size = 0;
  if (opened && appends) opened = log_->GetSize(size);
  if (opened && appends) opened = log_->Seek(size);
  if (!opened) return opened;
  toConsole_ = tees;
  return {};
}

void Output::Line(std::string_view text) {
  text_.append(text).push_back('\n');
  if (text_.size() >= kPiece) Flush();
}

void Output::Flush() {
  if (text_.empty()) return;
  if (toConsole_) console_->Write(text_);
  if (log_) log_->Write(text_);
  text_.clear();
}
