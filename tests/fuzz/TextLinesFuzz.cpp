#include "coreapi/Vekregexpr.h"
#include "fuzz/Fuzz.h"
#include "host/expressions/Expressions.h"
#include "textini/VekReadTextFileAction.h"
#include "textini/VekTextFind.h"

namespace {

/// Nothing is to be looked up: what was escaped refers to nothing.
struct NoReferences final : ExpressionSource {
  std::optional<std::string> VariableText(std::string_view) override {
    Require(false, "a variable was asked for");
    return {};
  }
  Variant EvaluateScript(std::string_view) override {
    Require(false, "a script was run");
    return {};
  }
};

StringList SlowLines(std::string_view text) {
  StringList lines;
  bool inLine = false;
  for (size_t i = 0; i < text.size(); ++i) {
    if (!inLine) lines.emplace_back();
    inLine = text[i] != '\r' && text[i] != '\n';
    if (inLine) lines.back() += text[i];
    if (text.substr(i, 2) == "\r\n") ++i;
  }
  return lines;
}

/// An escaped text matches itself, as long as no braces count something.
void CheckPattern(const std::string& text) {
  if (text.empty() || text.size() > 1'000 || text.find('{') != std::string::npos) return;
  TRegExpr search(StringToRegExp(text));
  Require(search.Exec(text), "a text does not match itself");
  RequireSame(search.Match(), text, "the match");
}

}  // namespace

FuzzFormat TargetFormat() {
  return {.seeds = {"one\r\ntwo\rthree\n\n\r\rend", "100% %X% $(1) $$( %%", "\\[^$.|?*+()]{}",
                    "\xFF\xC3\xA4\xE2\x82"},
          .words = {"\r\n", "\r", "\n", "a", "%",    "%%",       "$(",   "$$(",
                    "%A%",  ")",  "\\", "[", "]",    "(",        "*",    "\\E",
                    "\\b",  "^",  "$",  ".", "\xFF", "\xC3\xA4", "\xE2", std::string(1, '\0')},
          .runs = 20'000};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(InputText(data, size));
  RequireSame(JoinLines(SplitLines(text), "|"), JoinLines(SlowLines(text), "|"), "lines");
  size_t characters = 0;
  for (size_t i = 0; i < text.size(); ++characters) NextCodePoint(text, i);
  Require(CharacterCount(text) == characters, "the number of characters");
  NoReferences none;
  RequireSame(ExpandText(EscapeReferences(text), none), text, "escaped references");
  CheckPattern(text);
  return 0;
}
