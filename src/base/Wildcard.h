#pragma once

#include <string>
#include <string_view>

#include "vekcoreapi_export.h"

/// A mask by the DOS rules. Letter case is ignored; '*' matches any run of characters, '?' one character
/// other than a dot, or nothing before a dot and at the end of the name. A '*' before a dot ends at the last
/// dot of the name at the latest, a dot before a wildcard also matches the end of the name, and a final dot
/// stands for nothing: "*.*" matches every name, "*." only names without a dot, "name.*" also "name".
class VEK_API DosMask {
 public:
  explicit DosMask(std::string_view mask);
  bool Matches(std::string_view name) const;

  /// Whether it matches every name.
  bool MatchesAll() const { return matchesAll_; }

 private:
  bool MatchesSlowly(std::string_view name) const;

  std::u32string elements_;  // characters in upper case, and wildcards
  std::string suffix_;       // the ASCII text after the '*' of a mask that is no more than that
  bool matchesAll_ = false;
};

/// Whether a file name matches a mask by these rules.
VEK_API bool MatchesDosMask(std::string_view name, std::string_view mask);
