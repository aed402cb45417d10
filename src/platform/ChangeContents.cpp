#include "platform/ChangeContents.h"

#include "platform/OpenFile.h"

namespace {

/// Writes the text beside the file, from its first piece on; what goes wrong shows in the end.
class WrittenText final : public NewText {
 public:
  WrittenText(Contents& contents, std::string_view path) : contents_(contents), path_(path) {}

  void Append(std::string_view piece) override {
    constexpr size_t kBlock = size_t{256} << 10;
    if (gathered_.size() + piece.size() <= kBlock) {
      gathered_ += piece;
      return;
    }
    Flush();
    if (piece.size() < kBlock) {
      gathered_ = piece;
    } else {
      Write(piece);
    }
  }

  SysResult Commit() {
    Flush();
    return result_ ? new_->Commit() : result_;
  }

 private:
  void Flush() {
    Write(gathered_);
    gathered_.clear();
  }

  void Write(std::string_view bytes) {
    if (result_ && !new_) result_ = contents_.Rewrite(path_, new_);
    if (result_) result_ = new_->File().Write(bytes);
  }

  Contents& contents_;
  std::string_view path_;
  std::unique_ptr<NewContents> new_;
  std::string gathered_;  // pieces that are not worth a call of the system each
  SysResult result_;
};

}  // namespace

SysResult ChangeContents(Contents& contents, std::string_view path, const Contents::Edit& edit) {
  std::string old;
  const SysResult read = contents.ReadWhole(path, old);
  const bool isMissing = read.code == Win32Error::FileNotFound || read.code == Win32Error::PathNotFound;
  if (!read && !isMissing) return read;
  WrittenText changed(contents, path);
  return edit(old, changed) ? changed.Commit() : SysResult();
}
