#pragma once

#include <algorithm>
#include <string_view>

/// Whether a byte may stand in the name of a variable: letters (every byte beyond ASCII counts as one),
/// digits and "_.-()".
constexpr bool IsVariableNameByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("_.-()").find(c) != std::string_view::npos || static_cast<unsigned char>(c) >= 0x80;
}

constexpr bool IsVariableName(std::string_view name) {
  return !name.empty() && std::ranges::all_of(name, IsVariableNameByte);
}
