#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "coreapi/Vekvariant.h"
#include "host/secrets/Secrets.h"

/// The most bytes of a variable's text, of an expanded text and of a project file: what doubles itself would
/// else take all the memory that there is.
inline constexpr size_t kMostText = size_t{256} << 20;
inline constexpr std::string_view kMostTextShown = "256 MiB";

/// The project's variables. Names compare without regard to case; the first spelling stays. Values of secret
/// ones are remembered as such.
class Variables {
 public:
  /// Secret values are those of `outer` too, where there is one.
  explicit Variables(Secrets* outer = nullptr) : secrets_(outer) {}

  /// The value, or null when no variable has that name.
  const Variant* Find(std::string_view name) const;

  /// Gives a variable the value and the value's type, and defines it where it is new. A text that is too
  /// large is an EVekError.
  void Set(std::string_view name, Variant value);

  /// Marks a variable, defined or not, as secret.
  void MarkSecret(std::string_view name);

  /// Has every value of the variable, also the one that it holds, handed to the exporter as text.
  using Exporter = std::function<void(const std::string& text)>;
  void Export(std::string_view name, Exporter exporter);

  const Secrets& GetSecrets() const { return secrets_; }
  Secrets& GetSecrets() { return secrets_; }

  const std::map<std::string, Variant, LessNoCase>& All() const { return values_; }

 private:
  std::map<std::string, Variant, LessNoCase> values_;
  Secrets secrets_;
  std::map<std::string, Exporter, LessNoCase> exporters_;
};
