#pragma once

#include <string>

/// Text of a wide-string property. In memory it is UTF-8, as all text is; the type keeps the two string
/// types of the property vocabulary apart, because property editors are matched by type.
struct WideString : std::string {
  using std::string::string;
  WideString() = default;
  explicit WideString(std::string text) : std::string(std::move(text)) {}
};
