#include "host/expressions/ExpressionEnd.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace {

constexpr bool IsLineBreak(char c) { return c == '\n' || c == '\r'; }

constexpr bool IsWordByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// The length of the blank or line break that the text begins with, 0 when there is none.
size_t BlankLength(std::string_view text) {
  size_t length = 0;
  const char32_t c = NextCodePoint(text, length);
  const bool isBlank = c <= ' ' || c == 0xA0 || c == 0x1680 || c == 0x180E || (c >= 0x2000 && c <= 0x200A) ||
                       c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F || c == 0x3000 || c == 0xFEFF;
  return isBlank ? length : 0;
}

/// Words after which an operand follows, so that a slash starts a regular expression.
constexpr std::array<std::string_view, 11> kOperatorWords = {
    "case", "delete", "do", "else", "in", "instanceof", "new", "return", "throw", "typeof", "void"};

class Scanner {
 public:
  Scanner(std::string_view text, size_t start) : text_(text), position_(start) {}

  std::optional<size_t> Run() {
    for (size_t depth = 0; position_ < text_.size();) {
      const char c = text_[position_];
      if (c == ')' && depth == 0) return position_;
      if (c == '(') ++depth;
      if (c == ')') --depth;
      TakeToken(c);
    }
    return {};
  }

 private:
  void TakeToken(char c) {
    if (c == '"' || c == '\'') return TakeString(c);
    if (c == '/') return TakeSlash();
    if (const size_t blank = BlankLength(text_.substr(position_)); blank > 0)
      return SkipTo(position_ + blank);
    if (IsWordByte(c)) return TakeWord();
    const bool isStep =
        (c == '+' || c == '-') && text_.substr(position_ + 1, 1) == text_.substr(position_, 1);
    position_ += isStep ? 2 : 1;
    if (!isStep) afterOperand_ = c == ')' || c == ']' || c == '}';
  }

  void TakeWord() {
    const size_t start = position_;
    while (position_ < text_.size() && IsWordByte(text_[position_]) &&
           BlankLength(text_.substr(position_)) == 0) {
      ++position_;
    }
    const std::string_view word = text_.substr(start, position_ - start);
    const bool isMember = start > 0 && text_[start - 1] == '.';
    afterOperand_ = isMember || std::ranges::find(kOperatorWords, word) == kOperatorWords.end();
  }

  /// A literal ends with its quote, or broken off with its line.
  void TakeString(char quote) {
    for (++position_; position_ < text_.size() && !IsLineBreak(text_[position_]); ++position_) {
      if (text_[position_] == '\\') {
        if (text_.substr(position_ + 1, 2) == "\r\n") ++position_;
        ++position_;
      } else if (text_[position_] == quote) {
        ++position_;
        break;
      }
    }
    position_ = std::min(position_, text_.size());
    afterOperand_ = true;
  }

  void TakeSlash() {
    const char next = position_ + 1 < text_.size() ? text_[position_ + 1] : '\0';
    if (next == '/') return SkipTo(EndOfLine());
    if (next == '*') {
      const size_t close = text_.find("*/", position_ + 2);
      return SkipTo(close == std::string_view::npos ? close : close + 2);
    }
    const size_t end = afterOperand_ ? std::string_view::npos : RegExpEnd();
    afterOperand_ = end != std::string_view::npos;
    SkipTo(afterOperand_ ? end : position_ + 1);
  }

  size_t EndOfLine() const {
    const std::string_view line = text_.substr(0, text_.find_first_of("\r\n", position_));
    return std::min({line.size(), line.find("\u2028", position_), line.find("\u2029", position_)});
  }

  void SkipTo(size_t end) { position_ = std::min(end, text_.size()); }

  /// The position behind the literal's closing slash; none when it does not end on its line.
  size_t RegExpEnd() const {
    bool inClass = false;
    for (size_t i = position_ + 1; i < text_.size() && !IsLineBreak(text_[i]); ++i) {
      const char c = text_[i];
      if (c == '\\') ++i;
      if (c == '[') inClass = true;
      if (c == ']') inClass = false;
      if (c == '/' && !inClass) return i + 1;
    }
    return std::string_view::npos;
  }

  const std::string_view text_;
  size_t position_;
  bool afterOperand_ = false;  // a slash divides
};

}  // namespace

std::optional<size_t> FindExpressionEnd(std::string_view text, size_t start) {
  return Scanner(text, start).Run();
}
