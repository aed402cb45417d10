#include "host/engine/ActionTitle.h"

#include <string_view>

#include "base/Text.h"
#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekerrors.h"
#include "host/expressions/Expressions.h"
#include "host/expressions/Variables.h"

namespace {

constexpr size_t kLongestValue = 1000;  // bytes

class TitleSource final : public ExpressionSource {
 public:
  explicit TitleSource(const Variables& variables) : variables_(variables) {}

  std::optional<std::string> VariableText(std::string_view name) override {
    const Variant* value = variables_.Find(name);
    if (!value) return '%' + std::string(name) + '%';
    if (variables_.GetSecrets().IsSecret(name)) return std::string(kSecretText);
    // Hidden before it is cut: half a secret would be known no more.
    std::string text = variables_.GetSecrets().Mask(VariantToText(*value));
    if (text.size() <= kLongestValue) return text;
    size_t end = 0;
    for (size_t next = 0; next <= kLongestValue; NextCodePoint(text, next)) end = next;
    return text.substr(0, end) + "...";
  }

  Variant EvaluateScript(std::string_view source) override { return "$(" + std::string(source) + ')'; }

 private:
  const Variables& variables_;
};

}  // namespace

std::string ActionTitle(const TCustomVekAction& action, const Variables& variables) {
  const std::string description = variables.GetSecrets().Mask(action.GetDescription());
  if (description.find('%') == std::string::npos) return description;
  try {
    TitleSource source(variables);
    return ExpandText(description, source);
  } catch (const EVekExpressionError&) {
    return description;  // an expression in it is not closed
  }
}
