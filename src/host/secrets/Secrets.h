#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "coreapi/Vekvariant.h"

/// What stands in the place of a secret.
inline constexpr std::string_view kSecretText = "********";

/// The variables that are secret, and every value that they have held since they were marked. A value shorter
/// than four characters hides nothing: it would be everywhere.
class Secrets {
 public:
  /// Values are those of the outer secrets too, where there are any; the variables are their own.
  explicit Secrets(Secrets* outer = nullptr) : outer_(outer) {}

  void AddVariable(std::string_view name) { variables_.emplace(name); }
  bool IsSecret(std::string_view name) const { return variables_.contains(name); }

  void AddValue(const Variant& value);

  /// The text with every value in it hidden, also one that is quoted for JSON or XML, percent-encoded, or in
  /// Base64. A value of several lines is hidden line by line as well: programs write one at a time.
  std::string Mask(std::string_view text) const;

  /// Whether there is anything to hide.
  bool Any() const { return !forms_.empty() || !variables_.empty() || (outer_ && outer_->Any()); }

 private:
  void AddForms(std::string_view text);

  Secrets* outer_;
  std::set<std::string, LessNoCase> variables_;
  std::set<std::string, std::less<>> forms_;
};
