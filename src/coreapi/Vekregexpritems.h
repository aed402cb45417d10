#pragma once

#include <bitset>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// An item of an expression: a character, a class or a group with its quantifier.
struct TRegExprItem {
  std::bitset<256> bytes;  // all that it may match, and maybe more
  bool isOptional = false;
  bool isRepeatable = false;
  size_t leastText = 0;  // it is a text, or texts to choose from, of at least so many bytes; 0: it is not
  size_t begin = 0, end = 0;  // in the expression
};

/// The items that match one after another. What matches no characters of its own, such as \b, is left out.
/// Nothing for an expression that is a choice or that holds anything unusual.
std::optional<std::vector<TRegExprItem>> RegExprItems(std::string_view expression, bool dotMatchesLineBreaks);
