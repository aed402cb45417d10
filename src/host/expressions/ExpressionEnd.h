#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// The position of the parenthesis that closes the script expression which starts at `start`, or nothing.
/// Parentheses in string literals, comments and regular-expression literals do not count.
std::optional<size_t> FindExpressionEnd(std::string_view text, size_t start);
