#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekvariant.h"

/// What the references in a text stand for.
class ExpressionSource {
 public:
  virtual ~ExpressionSource() = default;

  /// The text of a variable, or nothing when there is none of that name.
  virtual std::optional<std::string> VariableText(std::string_view name) = 0;

  /// The value of a script expression; raises EVekExpressionError.
  virtual Variant EvaluateScript(std::string_view source) = 0;
};

/// A reference in a text that stands for nothing.
class EReferenceError : public EVekExpressionError {
 public:
  EReferenceError(const std::string& message, std::string_view escape, std::string variable = {})
      : EVekExpressionError(message), escape_(escape), variable_(std::move(variable)) {}

  /// How what looks like it is written to stand for itself; empty where that is no remedy.
  std::string_view Escape() const { return escape_; }
  const std::string& Variable() const { return variable_; }  // the unknown one; empty for other errors

 private:
  std::string_view escape_;  // a literal
  std::string variable_;
};

/// Expands %NAME% and $(EXPR) in one pass; %% is one '%', $$( is "$(" literally, and any other '%' or '$'
/// stands for itself. Raises EReferenceError, which names the variable or expression at fault. `replaced`
/// receives the number of references.
std::string ExpandText(std::string_view text, ExpressionSource& source, int32_t* replaced = nullptr);

/// The same for the path of a file or folder: a reference at its beginning that stands for nothing right
/// before a delimiter is an error, because the rest would be taken from the root.
std::string ExpandPath(std::string_view text, ExpressionSource& source);
