#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Win32Error.h"

class OpenFile;

/// A text on its way through a search, as one window or as several that overlap. A file that is searched as
/// it is read never leaves the processor's cache, which is several times faster than to hold the whole of it.
class TTextWindows {
 public:
  /// The whole text at once.
  explicit TTextWindows(std::string text);

  /// A file in pieces, for matches that depend on at most `reach` bytes from their start on, and on no more
  /// than one character before it.
  TTextWindows(std::unique_ptr<OpenFile> file, uint64_t size, size_t reach);

  ~TTextWindows();
  TTextWindows(TTextWindows&&) noexcept;

  /// Moves to the next window. The search of this one has got to byte `from`, in it or beyond. False at the
  /// end of the text, and when it cannot be read.
  bool Next(size_t from);
  SysResult Read() const { return read_; }

  std::string_view Text() const { return {text_.data(), length_}; }

  /// Where in this window the search goes on, and up to where matches may start.
  size_t From() const { return from_; }
  size_t Until() const { return atEnd_ ? length_ + 1 : length_ - reach_; }

  uint64_t BytesBefore() const { return bytesBefore_; }
  uint64_t TotalBytes() const { return totalBytes_; }

  /// From the first window on counts what goes by.
  void CountCharacters() { countsCharacters_ = true; }
  size_t CharactersBefore() const { return charactersBefore_; }

 private:
  void Drop(size_t bytes);
  void Fill();

  std::unique_ptr<OpenFile> file_;
  SysResult read_;
  std::string text_;
  size_t length_ = 0, from_ = 0, reach_ = 0;
  uint64_t bytesBefore_ = 0, totalBytes_ = 0;
  size_t charactersBefore_ = 0;
  bool countsCharacters_ = false, begun_ = false, atEnd_ = false;
};
