#include "base/Parameters.h"

#include <algorithm>

namespace {

constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }

/// Reads one argument from `position` on.
std::string NextArgument(std::string_view text, size_t& position) {
  std::string argument;
  bool quoted = false;
  while (position < text.size() && (quoted || !IsBlank(text[position]))) {
    const size_t next = std::min(text.find_first_not_of('\\', position), text.size());
    const size_t backslashes = next - position;
    const bool atQuote = next < text.size() && text[next] == '"';
    argument.append(atQuote ? backslashes / 2 : backslashes, '\\');
    position = next;
    if (!atQuote) {
      if (backslashes == 0) argument += text[position++];
      continue;
    }
    ++position;
    if (backslashes % 2 != 0) {
      argument += '"';
    } else if (quoted && position < text.size() && text[position] == '"') {
      argument += '"';
      ++position;
    } else {
      quoted = !quoted;
    }
  }
  return argument;
}

}  // namespace

StringList SplitParameters(std::string_view parameters) {
  StringList arguments;
  for (size_t position = 0;;) {
    while (position < parameters.size() && IsBlank(parameters[position])) ++position;
    if (position == parameters.size()) return arguments;
    arguments.push_back(NextArgument(parameters, position));
  }
}
