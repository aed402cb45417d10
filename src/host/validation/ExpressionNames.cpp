#include "host/validation/ExpressionNames.h"

#include <algorithm>

namespace {

constexpr std::string_view kWords[] = {"true",   "false", "null", "undefined",  "this", "new",
                                       "typeof", "void",  "in",   "instanceof", "NaN",  "Infinity"};
constexpr std::string_view kTooMuch[] = {"function", "var", "const", "let", "delete"};

bool StartsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}
bool ContinuesName(char c) { return StartsName(c) || (c >= '0' && c <= '9'); }

size_t EndOfText(std::string_view text, size_t start) {
  size_t end = start + 1;
  while (end < text.size() && text[end] != text[start]) end += text[end] == '\\' ? 2 : 1;
  return std::min(end + 1, text.size());
}

}  // namespace

StringList NamesReadBy(std::string_view expression) {
  StringList names;
  char before = '\0';  // the last character that is no blank
  for (size_t i = 0; i < expression.size();) {
    const char c = expression[i];
    if (c == '/' || c == '{' || c == '`' || c == ';') return {};
    size_t end = i + 1;
    if (c == '"' || c == '\'') {
      end = EndOfText(expression, i);
    } else if (ContinuesName(c)) {
      while (end < expression.size() && ContinuesName(expression[end])) ++end;
      const std::string_view word = expression.substr(i, end - i);
      if (std::ranges::find(kTooMuch, word) != std::end(kTooMuch)) return {};
      const bool isName =
          StartsName(c) && before != '.' && std::ranges::find(kWords, word) == std::end(kWords);
      if (isName) names.emplace_back(word);
    }
    if (c != ' ' && c != '\t' && c != '\n' && c != '\r') before = expression[end - 1];
    i = end;
  }
  return names;
}
