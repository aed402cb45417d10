#include <map>

#include "gtest/gtest.h"

#include "base/Text.h"
#include "coreapi/Vekerrors.h"
#include "host/expressions/ExpressionEnd.h"
#include "host/expressions/Expressions.h"

namespace {

/// Variables of a fixed set; a script's value is its source in brackets.
class Source final : public ExpressionSource {
 public:
  std::optional<std::string> VariableText(std::string_view name) override {
    const auto found = variables_.find(name);
    return found == variables_.end() ? std::nullopt : std::optional(found->second);
  }

  Variant EvaluateScript(std::string_view source) override {
    if (source == "true") return true;
    if (source == "6*7") return int64_t{42};
    if (source == "date") return TDateTime{39146};
    if (source == "null") return {};
    if (source == "bad()") throw EVekError("bad is no function");
    return "[" + std::string(source) + "]";
  }

 private:
  const std::map<std::string, std::string, LessNoCase> variables_ = {
      {"A", "one"},    {"b.c-d_e(2)", "two"}, {"Größe", "three"}, {"LOOP", "%A%$(6*7)%%"},
      {"100", "cent"}, {"EMPTY", ""},         {"BLANK", " "},     {"b", "lower"}};
};

std::string Expand(std::string_view text) {
  Source source;
  return ExpandText(text, source);
}

std::string Failure(std::string_view text) {
  try {
    return "no error: " + Expand(text);
  } catch (const EVekExpressionError& error) {
    return error.what();
  }
}

}  // namespace

TEST(Expressions, CountsReferences) {
  Source source;
  int32_t replaced = -1;
  EXPECT_EQ(ExpandText("%A% 100% %% $$(x) $(6*7)%a%", source, &replaced), "one 100% % $(x) 42one");
  EXPECT_EQ(replaced, 3);
}

TEST(Expressions, APathDoesNotBeginAtTheRootBecauseAVariableIsEmpty) {
  Source source;
  for (const char* path : {"%EMPTY%\\*.tmp", " %EMPTY%/x", "$(null)/x", "%BLANK%/x"}) {
    EXPECT_THROW(ExpandPath(path, source), EVekExpressionError) << path;
    EXPECT_NO_THROW(ExpandText(path, source)) << path;
  }
  for (const char* path : {"%A%\\%EMPTY%\\x", "%EMPTY%x/y", "%EMPTY%", "/%EMPTY%/x", "%EMPTY%%A%/x"}) {
    EXPECT_EQ(ExpandPath(path, source), ExpandText(path, source)) << path;
  }
}

TEST(Expressions, TextsAndWhatTheyExpandTo) {
  const struct {
    std::string_view text, wanted;
  } cases[] = {
      {"", ""},
      {"plain", "plain"},
      // Variables.
      {"%A%", "one"},
      {"<%a%><%A%>", "<one><one>"},
      {"%B.C-D_E(2)%", "two"},
      {"%Größe%", "three"},
      {"%EMPTY%", ""},
      {"%A%%b%", "onelower"},
      {"%A%b%", "oneb%"},
      {"%100%", "cent"},
      // Expansion is one pass.
      {"%LOOP%", "%A%$(6*7)%%"},
      // Per cent signs that stand for themselves.
      {"100% sure", "100% sure"},
      {"50%\u2013"
       "60% of \u20AC",
       "50%\u2013"
       "60% of \u20AC"},  // a dash is no letter
      {"50%", "50%"},
      {"%", "%"},
      {"a%b c%d", "a%b c%d"},
      {"% A%", "% A%"},
      {"%A", "%A"},
      {"%A B%", "%A B%"},
      {"50%% of %A%", "50% of one"},
      {"%%A%%", "%A%"},
      {"%%%A%", "%one"},
      {"%%%", "%%"},
      // Scripts.
      {"$(6*7)", "42"},
      {"$(true)|$(date)|$(null)|", "True|2007-03-05T00:00:00||"},
      {"$(a % b)%A%", "[a % b]one"},
      {"$(%A%)", "[%A%]"},
      {"$()", "[]"},
      // Dollar signs that stand for themselves.
      {"$", "$"},
      {"$5 $ ( $$ $$$", "$5 $ ( $$ $$$"},
      {"$$(6*7)", "$(6*7)"},
      {"$$(%A%", "$(one"},
      {"$$$(x)", "$$(x)"},
      {"\xFF%A%\xFF", "\xFFone\xFF"},
  };
  for (const auto& [text, wanted] : cases) EXPECT_EQ(Expand(text), wanted) << text;
}

TEST(Expressions, FailuresNameWhatIsAtFault) {
  const struct {
    std::string_view text, wanted;
  } cases[] = {
      {"x %FOO% y", "unknown variable \"FOO\""},
      {"100%(x)%", "unknown variable \"(x)\""},
      {"from 10%-50%", "unknown variable \"-50\""},
      {"$(bad())", "expression \"$(bad())\": bad is no function"},
      {"a $(1 + (2) b", "expression \"$(1 + (2) b\" has no closing parenthesis"},
      {"$(", "expression \"$(\" has no closing parenthesis"},
  };
  for (const auto& [text, wanted] : cases) EXPECT_EQ(Failure(text), wanted) << text;
  EXPECT_LT(Failure("$(" + std::string(5000, 'x')).size(), 200u);
}

TEST(Expressions, TheEndOfAScriptIsFoundByItsTokens) {
  // Each text goes on behind the parenthesis that ends the expression with "<)", where one does.
  // clang-format off
  const std::string_view cases[] = {
      "f(1, (2))<)", "')' + \")\"<)", "'it\\'s )' + '\\\\'<)", "'line\\\r\n)'<)", "1 // )\n<)",
      "1 /* ) */<)", "/\\)/.test(a)<)", "/[/)]/.test(a)<)", "f(/)/)<)", "a / 2 + ')' / 2<)",
      "(a) / b + (c) / d<)", "a[0] / 2 / ')'.length<)", "x.return / 2 + (1) / 2<)", "typeof /)/<)",
      "i++ / 2 + (1) / 2<)", "1 + +/)/<)", "a<!--f(b)<)", "\u00A0/)/<)", "a\u180E/ 2 + (1) / 2<)",
      "typeof\uFEFF/)/<)", "1 // )\u2028<)", "1 // )\u2029<)", "größe / 2 + (1) / 2<)", "{a: ')'}<)",
      "a = '", "/* )", "'\\", "(",
  };
  // clang-format on
  for (const std::string_view text : cases) {
    const size_t mark = text.find("<)");
    const auto wanted = mark == text.npos ? std::nullopt : std::optional(mark + 1);
    EXPECT_EQ(FindExpressionEnd(text, 0), wanted) << text;
  }
}
