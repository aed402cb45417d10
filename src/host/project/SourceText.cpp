#include "host/project/SourceText.h"

#include <algorithm>

#include "base/Text.h"
#include "host/project/Quoted.h"

SourceText::SourceText(std::string_view text) : text_(text), lineStarts_{0} {
  for (size_t i = 0; (i = text.find_first_of("\r\n", i)) != std::string_view::npos;) {
    i += text.substr(i, 2) == "\r\n" ? 2 : 1;
    lineStarts_.push_back(i);
  }
}

int SourceText::LineAt(size_t offset) const {
  return static_cast<int>(std::ranges::upper_bound(lineStarts_, offset) - lineStarts_.begin());
}

NoText FindNoText(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    return {0, "the file is in UTF-16, not in UTF-8"};
  }
  for (size_t i = 0; i < bytes.size();) {
    const size_t start = i;
    const char32_t c = NextCodePoint(bytes, i);
    if (c >= kInvalidByte) {
      return {start, "the byte " + Quoted(bytes.substr(start, 1)) + " is not UTF-8"};
    }
    if (c < 0x20 && c != '\t' && c != '\n' && c != '\r') {
      return {start, "the control character " + Quoted(bytes.substr(start, 1)) + " is not allowed"};
    }
  }
  return {};
}
