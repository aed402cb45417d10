#include "host/validation/ExpressionNames.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::string_view kWords[] = {"true",   "false", "null", "undefined",  "this", "new",
                                       "typeof", "void",  "in",   "instanceof", "NaN",  "Infinity"};
constexpr std::string_view kTooMuch[] = {"function", "var", "const", "let", "delete"};

bool StartsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}
bool ContinuesName(char c) { return StartsName(c) || (c >= '0' && c <= '9'); }

bool ContinuesMember(char c) { return ContinuesName(c) || c == '.'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

size_t EndOfText(std::string_view text, size_t start) {
  size_t end = start + 1;
  while (end < text.size() && text[end] != text[start]) end += text[end] == '\\' ? 2 : 1;
  return std::min(end + 1, text.size());
}

/// The text in the parentheses that `call` begins with, where a literal without escapes is all they hold.
std::optional<std::string_view> OnlyArgument(std::string_view call) {
  call = Trim(call);
  if (!call.starts_with('(')) return {};
  call = Trim(call.substr(1));
  if (!call.starts_with('"') && !call.starts_with('\'')) return {};
  const size_t end = EndOfText(call, 0);
  const std::string_view name = call.substr(1, std::max<size_t>(end, 2) - 2);
  if (name.find('\\') != std::string_view::npos || !Trim(call.substr(end)).starts_with(')')) return {};
  return name;
}

}  // namespace

StringList NamesReadBy(std::string_view expression) {
  StringList names, asked;
  char before = '\0';  // the last character that is no blank
  bool isAsked = false;
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
      if (isName) (isAsked ? asked : names).emplace_back(word);
      isAsked = word == "typeof";
    } else if (c != '(') {
      isAsked = isAsked && IsBlank(c);
    }
    if (!IsBlank(c)) before = expression[end - 1];
    i = end;
  }
  // Whether there is a variable is what typeof is for.
  std::erase_if(names, [&asked](const std::string& name) { return std::ranges::count(asked, name) > 0; });
  return names;
}

StringList ActionsNamedIn(std::string_view script) {
  constexpr std::string_view kCall = "Vek.ActionByName";
  StringList names;
  for (size_t i = 0; i < script.size();) {
    const std::string_view rest = script.substr(i);
    if (rest[0] == '"' || rest[0] == '\'') {
      i = EndOfText(script, i);
    } else if (rest.starts_with("//")) {
      i = std::min(script.find('\n', i), script.size());
    } else if (rest.starts_with("/*")) {
      i = std::min(script.find("*/", i + 2), script.size() - 2) + 2;
    } else if (rest.starts_with(kCall) && (i == 0 || !ContinuesMember(script[i - 1]))) {
      i += kCall.size();
      if (const auto name = OnlyArgument(script.substr(i))) names.emplace_back(*name);
    } else {
      ++i;
    }
  }
  return names;
}
