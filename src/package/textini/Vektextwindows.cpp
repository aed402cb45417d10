#include "textini/Vektextwindows.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/OpenFile.h"

namespace {

constexpr size_t kWindow = size_t{256} << 10;
constexpr size_t kLongestCharacter = 4;

}  // namespace

TTextWindows::TTextWindows(std::string text)
    : text_(std::move(text)), length_(text_.size()), totalBytes_(text_.size()), atEnd_(true) {}

TTextWindows::TTextWindows(std::unique_ptr<OpenFile> file, uint64_t size, size_t reach)
    : file_(std::move(file)), reach_(reach), totalBytes_(size) {
  text_.resize(kWindow + 2 * reach_);
}

TTextWindows::~TTextWindows() = default;
TTextWindows::TTextWindows(TTextWindows&&) noexcept = default;

bool TTextWindows::Next(size_t from) {
  if (begun_ && atEnd_) return false;
  from_ = from;
  if (begun_) {
    // What stands before a match may matter to it: a whole character is kept.
    size_t keep = from_ - std::min(from_, kLongestCharacter);
    while (keep > 0 && from_ - keep < 2 * kLongestCharacter && (text_[keep] & 0xC0) == 0x80) --keep;
    Drop(keep);
  }
  begun_ = true;
  if (!atEnd_) Fill();
  return read_.ok;
}

void TTextWindows::Drop(size_t bytes) {
  if (countsCharacters_) charactersBefore_ += CharacterCount(Text().substr(0, bytes));
  std::copy(text_.begin() + static_cast<ptrdiff_t>(bytes), text_.begin() + static_cast<ptrdiff_t>(length_),
            text_.begin());
  bytesBefore_ += bytes;
  length_ -= bytes;
  from_ -= bytes;
}

void TTextWindows::Fill() {
  while (length_ < text_.size() && !atEnd_) {
    size_t count = 0;
    read_ = file_->Read({text_.data() + length_, text_.size() - length_}, count);
    if (!read_) return;
    length_ += count;
    atEnd_ = count == 0;
  }
}
