#include "platform/RegistryScanner.h"

#include <algorithm>

#include "platform/RegistryFormat.h"

namespace {

constexpr std::string_view kBlanks = " \t\r";

size_t SkipBlanks(std::string_view text, size_t from) {
  return std::min(text.find_first_not_of(kBlanks, from), text.size());
}

/// The end of the line that holds `from`, before its line break.
size_t LineEnd(std::string_view text, size_t from) { return std::min(text.find('\n', from), text.size()); }

std::string_view TrimEnd(std::string_view text) {
  const size_t last = text.find_last_not_of(kBlanks);
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/// Behind the closing quote of what is quoted at `from`; npos when it is not closed.
size_t QuoteEnd(std::string_view text, size_t from) {
  for (size_t i = from + 1; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == '"') {
      return i + 1;
    }
  }
  return std::string_view::npos;
}

/// The end of a value that is not quoted, without blanks and a comment at its end. A backslash at the end of
/// a line continues it; npos where there is no further line.
size_t PlainEnd(std::string_view text, size_t from) {
  for (size_t begin = from;;) {
    const size_t end = LineEnd(text, begin);
    const std::string_view line = text.substr(begin, end - begin);
    const size_t size = TrimEnd(line.substr(0, line.find(';'))).size();
    if (size == 0 || line[size - 1] != '\\') return begin + size;
    begin = end + 1;
    if (begin >= text.size()) return std::string_view::npos;
  }
}

bool IsDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

/// Words of kinds that this system does not know, "kind:" or "kind(number):", may be anything behind it.
bool IsUnknownKind(std::string_view text) {
  const size_t colon = text.find(':');
  if (colon == 0 || colon == std::string_view::npos) return false;
  std::string_view word = text.substr(0, colon);
  if (const size_t bracket = word.find('('); bracket != std::string_view::npos) {
    if (word.back() != ')' || !IsDigits(word.substr(bracket + 1, word.size() - bracket - 2))) return false;
    word = word.substr(0, bracket);
  }
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  return !word.empty() && std::ranges::all_of(word, isLetter) && !SameText(word, "hex") &&
         !SameText(word, "dword");
}

bool IsValue(std::string_view text) {
  return text == "-" || IsUnknownKind(text) || DecodeRegistryValue(text).has_value();
}

bool HasKnownRoot(std::string_view path) {
  const std::string_view root = path.substr(0, path.find('\\'));
  return std::ranges::any_of(kRegistryRoots, [&](const auto& row) { return SameText(root, row.name); });
}

}  // namespace

bool RegistryScanner::Next(RegistryPiece& piece) {
  if (rest_.empty() || fault_) return false;
  const size_t start = SkipBlanks(rest_, 0);
  const std::string_view line = TrimEnd(rest_.substr(start, LineEnd(rest_, start) - start));
  piece.kind = RegistryPiece::Kind::Other;
  piece.name.clear();
  if (line.empty() || line.front() == ';') return Finish(piece, start);
  if (line.front() == '[') return Key(piece, line) && Finish(piece, start);
  return Value(piece, start);
}

bool RegistryScanner::Key(RegistryPiece& piece, std::string_view line) {
  // The name of a key may itself hold brackets.
  const size_t bracket = line.rfind(']');
  if (bracket == std::string_view::npos) return Fail("the name of a key is not closed by \"]\"");
  const size_t end = SkipBlanks(line, bracket + 1);
  if (end < line.size() && line[end] != ';') return Fail("there is more behind the name of the key");
  const bool removes = line.substr(1, 1) == "-";
  piece.kind = removes ? RegistryPiece::Kind::RemovedKey : RegistryPiece::Kind::Key;
  const size_t begin = removes ? 2 : 1;
  if (bracket < begin) return Fail("a key has no name");
  piece.name = RegistryPath(line.substr(begin, bracket - begin));
  if (!HasKnownRoot(piece.name)) return Fail("the key has no root such as HKEY_CURRENT_USER");
  hasKey_ = true;
  return true;
}

bool RegistryScanner::Value(RegistryPiece& piece, size_t start) {
  size_t position = start + 1;
  if (rest_[start] == '"') {
    position = QuoteEnd(rest_, start);
    if (position == std::string_view::npos) return Fail("the name of a value is not closed by a quote");
    piece.name = UnescapeRegistryText(rest_.substr(start + 1, position - start - 2));
  } else if (rest_[start] != '@') {
    return Fail("a line is neither a key nor a value");
  }
  position = SkipBlanks(rest_, position);
  if (rest_.substr(position, 1) != "=") return Fail("\"=\" is missing behind the name of a value");
  piece.kind = RegistryPiece::Kind::Value;
  piece.value = SkipBlanks(rest_, position + 1);
  const bool isQuoted = rest_.substr(piece.value, 1) == "\"";
  const size_t end = isQuoted ? QuoteEnd(rest_, piece.value) : PlainEnd(rest_, piece.value);
  if (end == std::string_view::npos) {
    return Fail(isQuoted ? "a text is not closed by a quote" : "the end of a value is missing");
  }
  piece.valueSize = end - piece.value;
  if (!IsValue(rest_.substr(piece.value, piece.valueSize)))
    return Fail("the value has none of the known forms");
  const size_t behind = SkipBlanks(rest_, end);
  if (behind < rest_.size() && rest_[behind] != '\n' && rest_[behind] != ';') {
    return Fail("there is more behind the value");
  }
  if (!hasKey_) return Fail("a value stands before the first key");
  return Finish(piece, end);
}

/// Ends the piece at the end of the line that holds `size`.
bool RegistryScanner::Finish(RegistryPiece& piece, size_t size) {
  const size_t end = std::min(LineEnd(rest_, size) + 1, rest_.size());
  piece.raw = rest_.substr(0, end);
  line_ += static_cast<size_t>(std::ranges::count(piece.raw, '\n'));
  rest_.remove_prefix(end);
  return true;
}

bool RegistryScanner::Fail(std::string_view reason) {
  fault_ = RegistryFault{line_, std::string(reason)};
  return false;
}
