#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The text of a file by lines; CR LF, CR and LF end one.
class SourceText {
 public:
  explicit SourceText(std::string_view text);

  std::string_view Text() const { return text_; }
  int LineAt(size_t offset) const;  // 1-based

 private:
  std::string_view text_;
  std::vector<size_t> lineStarts_;
};

/// The first place where a file is no text in UTF-8 and why, in words.
struct NoText {
  size_t offset = 0;
  std::string reason;  // empty: it is text
};
NoText FindNoText(std::string_view bytes);
