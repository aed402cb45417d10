#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

/// Cuts what a stream brings into lines, which end in LF or CR LF. A line that does not end is cut into
/// pieces, so that memory stays bounded.
class OutputLines {
 public:
  static constexpr size_t kReadSize = 65536;
  static constexpr size_t kLongestPiece = size_t{1} << 20;

  /// Room for the next kReadSize bytes.
  char* Room() {
    if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(kCapacity);
    const size_t rest = end_ - begin_;
    // A short rest is moved at once: what is read then lies in the processor's cache.
    if (begin_ > 0 && (rest < kShort || kCapacity - end_ < kReadSize)) {
      std::memmove(buffer_.get(), buffer_.get() + begin_, rest);
      scanned_ -= begin_;
      begin_ = 0;
      end_ = rest;
    }
    return buffer_.get() + end_;
  }

  /// So many bytes came into the room; delivers the lines that they complete.
  template <class Deliver>
  void Take(size_t count, const Deliver& deliver) {
    end_ += count;
    while (const void* lineEnd = std::memchr(buffer_.get() + scanned_, '\n', end_ - scanned_)) {
      const auto length = static_cast<size_t>(static_cast<const char*>(lineEnd) - buffer_.get()) - begin_;
      const std::string_view line(buffer_.get() + begin_, length);
      begin_ = scanned_ = begin_ + length + 1;
      deliver(line.ends_with('\r') ? line.substr(0, length - 1) : line);
    }
    scanned_ = end_;
    while (end_ - begin_ > kLongestPiece) {
      const std::string_view piece(buffer_.get() + begin_, PieceLength());
      begin_ += piece.size();
      deliver(piece);
    }
  }

  /// The stream is at its end; delivers what stands after the last line end.
  template <class Deliver>
  void Finish(const Deliver& deliver) {
    const std::string_view rest(buffer_.get() + begin_, end_ - begin_);
    begin_ = scanned_ = end_;
    if (!rest.empty()) deliver(rest);
  }

 private:
  /// Keeps a character whole.
  size_t PieceLength() const {
    const char* piece = buffer_.get() + begin_;
    size_t length = kLongestPiece;
    for (int i = 0; i < 3 && (static_cast<unsigned char>(piece[length]) & 0xC0) == 0x80; ++i) --length;
    return length;
  }

  static constexpr size_t kShort = 4096;
  static constexpr size_t kCapacity = kLongestPiece + 4 * kReadSize;

  std::unique_ptr<char[]> buffer_;
  size_t begin_ = 0, scanned_ = 0, end_ = 0;
};
