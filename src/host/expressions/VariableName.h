#pragma once

#include <string_view>

/// The length of the variable name that the text begins with: letters, digits and "_.-()". Beyond ASCII the
/// blocks of punctuation, symbols and blanks hold no letters.
size_t VariableNameLength(std::string_view text);

inline bool IsVariableName(std::string_view name) {
  return !name.empty() && VariableNameLength(name) == name.size();
}
