#include "host/expressions/Expressions.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/Text.h"
#include "base/WindowsPath.h"
#include "coreapi/Vekerrors.h"
#include "host/expressions/ExpressionEnd.h"
#include "host/expressions/VariableName.h"
#include "host/expressions/Variables.h"
#include "host/project/Quoted.h"

namespace {

constexpr std::string_view kScriptStart = "$(";
constexpr std::string_view kPercentEscape = "%% stands for one %";
constexpr std::string_view kScriptEscape = "$$( stands for $(";

class Expansion {
 public:
  Expansion(std::string_view text, ExpressionSource& source, bool isPath)
      : text_(text), source_(source), isPath_(isPath) {}

  std::string Run() {
    while (position_ < text_.size()) {
      const size_t special = std::min(text_.find_first_of("%$", position_), text_.size());
      result_.append(text_, position_, special - position_);
      position_ = special;
      if (position_ == text_.size()) break;
      text_[position_] == '%' ? TakePercent() : TakeDollar();
    }
    return std::move(result_);
  }

  int32_t References() const { return references_; }

 private:
  bool At(std::string_view token) const { return text_.substr(position_).starts_with(token); }

  void TakeLiteral(std::string_view literal, size_t length) {
    result_ += literal;
    position_ += length;
  }

  void TakeReference(std::string_view value, size_t length) {
    const size_t end = position_ + length;
    const bool leadsToRoot = isPath_ && Trim(value).empty() && Trim(result_).empty() && end < text_.size() &&
                             IsPathDelimiter(text_[end]);
    if (leadsToRoot) {
      throw EReferenceError(
          Quoted(text_.substr(position_, length)) + " is empty: the path would begin at the root", "");
    }
    if (result_.size() + value.size() > kMostText) {
      throw EReferenceError("with " + Quoted(text_.substr(position_, length)) +
                                " the text would be larger than " + std::string(kMostTextShown),
                            "");
    }
    ++references_;
    TakeLiteral(value, length);
  }

  void TakePercent() {
    if (At("%%")) return TakeLiteral("%", 2);
    const std::string_view rest = text_.substr(position_ + 1);
    const std::string_view name = rest.substr(0, VariableNameLength(rest));
    const size_t end = position_ + 1 + name.size();
    if (name.empty() || end == text_.size() || text_[end] != '%') return TakeLiteral("%", 1);

    const auto value = source_.VariableText(name);
    if (!value) throw EReferenceError("unknown variable " + Quoted(name), kPercentEscape, std::string(name));
    TakeReference(*value, end + 1 - position_);
  }

  void TakeDollar() {
    if (At("$$(")) return TakeLiteral(kScriptStart, 3);
    if (!At(kScriptStart)) return TakeLiteral("$", 1);
    const size_t start = position_ + kScriptStart.size();
    const auto end = FindExpressionEnd(text_, start);
    if (!end)
      throw EReferenceError("expression " + Quoted(text_.substr(position_)) + " has no closing parenthesis",
                            kScriptEscape);
    TakeReference(ScriptText(text_.substr(start, *end - start)), *end + 1 - position_);
  }

  std::string ScriptText(std::string_view script) {
    try {
      return VariantToText(source_.EvaluateScript(script));
    } catch (const EVekError& error) {
      throw EReferenceError("expression " + Quoted("$(" + std::string(script) + ")") + ": " + error.what(),
                            kScriptEscape);
    }
  }

  const std::string_view text_;
  ExpressionSource& source_;
  const bool isPath_;
  size_t position_ = 0;
  int32_t references_ = 0;
  std::string result_;
};

}  // namespace

std::string ExpandText(std::string_view text, ExpressionSource& source, int32_t* replaced) {
  Expansion expansion(text, source, false);
  std::string expanded = expansion.Run();
  if (replaced) *replaced = expansion.References();
  return expanded;
}

std::string ExpandPath(std::string_view text, ExpressionSource& source) {
  return Expansion(text, source, true).Run();
}
