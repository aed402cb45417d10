#include <atomic>

#include "gmock/gmock.h"

#include "base/Text.h"
#include "coreapi/Vekregexpr.h"

using testing::HasSubstr;

namespace {

/// "position:match" of every match.
StringList Matches(const std::string& expression, const std::string& text, TRegExprModifiers modifiers = {}) {
  StringList matches;
  TRegExpr search(expression, modifiers);
  for (bool found = search.Exec(text); found; found = search.ExecNext()) {
    matches.push_back(std::to_string(search.MatchPos()) + ':' + std::string(search.Match()));
  }
  return matches;
}

TEST(RegExpr, FindsEveryMatchWithItsPositionInCharacters) {
  constexpr TRegExprModifiers kLines{.m = true, .s = false}, kAnyCase{.i = true};
  constexpr TRegExprModifiers kLiteral{.literal = true}, kLiteralAnyCase{.i = true, .literal = true};
  const struct {
    std::string expression, text;
    TRegExprModifiers modifiers;
    StringList wanted;
  } cases[] = {
      {"b", "abcb", {}, {"2:b", "4:b"}},
      {"B", "abcb", {}, {}},
      {"a.c", "a\r\nc a\nc", {}, {"6:a\nc"}},
      {"a.c", "a\nc abc", kLines, {"5:abc"}},
      {"^.|.$", "ab\ncd", {}, {"1:a", "5:d"}},
      {"^.|.$", "ab\r\ncd\ref", kLines, {"1:a", "2:b", "5:c", "6:d", "8:e", "9:f"}},
      // Empty matches count, and the search goes on behind the next character or line end.
      {"x*", "axb", {}, {"1:", "2:x", "3:", "4:"}},
      {"", "ab", {}, {"1:", "2:", "3:"}},
      {"", "", {}, {"1:"}},
      {"^$", "a\r\n\r\nb\n\n", kLines, {"4:", "8:"}},
      {"a(?=b)|", "ab", {}, {"1:a", "2:", "3:"}},
      // Unicode, and bytes that are none.
      // clang-format off
      {"\\w+", "\xC3\xA4""b \xC3\x84", {}, {"1:\xC3\xA4""b", "4:\xC3\x84"}},
      {"\xC3\xA4", "x\xC3\x84", kAnyCase, {"2:\xC3\x84"}},
      {"\\bb", "\xC3\xA4""b b", {}, {"4:b"}},
      {"b", "\xFF\xE2\x82""b\xC3", {}, {"4:b"}},
      {".", "a\xFF""b", {}, {"1:a", "3:b"}},
      // clang-format on
      {"", "\xFF\xC3\xA4", {}, {"1:", "2:", "3:"}},
      {"\xFF", "a\xFF\xFF", {}, {"2:\xFF", "3:\xFF"}},
      {"k", std::string(5000, 'x') + "K", kAnyCase, {"5001:K"}},
      {"a.c(", "abc a.c( A.C(", kLiteral, {"5:a.c("}},
      {"a.c(", "abc a.c( A.C(", kLiteralAnyCase, {"5:a.c(", "10:A.C("}},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(Matches(test.expression, test.text, test.modifiers), test.wanted)
        << test.expression << " in " << test.text;
  }
}

TEST(RegExpr, LongTextsAreSearchedInStridesThatShowNowhere) {
  std::string text;
  while (text.size() < 400'000) text += "\xC3\xA4\r\n";
  EXPECT_EQ(Matches("^$", text, {.m = true}).size(), 0u);
  EXPECT_EQ(Matches("\\x{E4}$", text, {.m = true}).size(), text.size() / 4);
  EXPECT_EQ(Matches("(?<=\n)\xC3\xA4", text).size(), text.size() / 4 - 1);
}

/// Words in an order of no meaning, some of which stand for much that expressions ask for.
std::string JumbledText(std::initializer_list<const char*> words, size_t size) {
  std::string text;
  for (uint32_t random = 1; text.size() < size; random = random * 1664525 + 1013904223) {
    text += *(words.begin() + (random >> 16) % words.size());
  }
  return text;
}

TEST(RegExpr, LookingForAPartFirstFindsTheSame) {
  const std::string texts[] = {
      JumbledText({"ing ", "ine", "files ", "lines ", "Need", "le4", "a", "aa", "b", "x", " ", "\n", "\r\n",
                   "\"", "the "},
                  10'000),
      JumbledText({"ing ", "ine", "files ", "Need", "\xC3\xA4", "\x84", "\xE2\x82", "a", "aa", "\xFF", " ",
                   "\r", "\n"},
                  10'000),
  };
  constexpr TRegExprModifiers kModifiers[] = {{}, {.m = true, .s = false}};
  for (const char* before :
       {"\\w+", "[a-z]+ ?", "\\s*", ".", ".*", "(?:x|\xC3\xA4)+", "(a|b)?", "[^\"\\n]*?", "^.", "\\b[a-i]",
        "\xC3\xA4", "a.{2,3}", "(?<=a)\\s", "\\r?\\n", "[^x]", "[]a-]+\\D", "(?!the)[\\w ]++"}) {
    for (const char* part : {"ing ", "Need", "(?:lines|files) ", "\\ aa"}) {
      for (const char* behind : {"", "\\w*", ".\\d$", "(?:x|)\\s*(?=\\w)"}) {
        for (const TRegExprModifiers& modifiers : kModifiers) {
          const std::string expression = std::string(before) + part + behind;
          for (const std::string& text : texts) {
            // Within a group nothing is looked for first.
            EXPECT_EQ(Matches(expression, text, modifiers),
                      Matches("(?:" + expression + ")", text, modifiers))
                << expression;
          }
        }
      }
    }
  }
}

TEST(RegExpr, WhatDoesNotCompileIsNamed) {
  for (const auto& [expression, wanted] : std::initializer_list<std::pair<std::string, std::string>>{
           {"a(b", "missing closing parenthesis after character 3"},
           {"*", "quantifier does not follow a repeatable item"},
           {std::string(10'000, '(') + std::string(10'000, ')'), "parentheses are too deeply nested"},
           {"(" + std::string(1'000'000, 'a') + ")", "too large"}}) {
    try {
      const TRegExpr search(expression);
      FAIL() << "compiled";
    } catch (const ERegExpr& error) {
      EXPECT_THAT(error.what(), HasSubstr(wanted));
    }
  }
}

TEST(RegExpr, AMatchThatRunsAwayEndsWithTheEnginesError) {
  TRegExpr search("(a|aa)+$");
  try {
    search.Exec(std::string(60, 'a') + 'b');
    FAIL() << "came to an end";
  } catch (const ERegExpr& error) {
    EXPECT_STREQ(error.what(), "match limit exceeded");
  }
  EXPECT_TRUE(search.Exec("aa"));
  // A match that needs many steps, and much of the engine's stack, is none that runs away.
  EXPECT_EQ(Matches("a(b|c)*?d", "a" + std::string(1'100'000, 'b') + 'd').size(), 1u);
  EXPECT_EQ(Matches("(b|c)*d", std::string(300'000, 'b') + 'd').size(), 1u);
}

TEST(RegExpr, AStopEndsTheSearchWithinAMatch) {
  // Each start takes millions of steps without reaching the limit; all of them would take hours.
  const std::string text(2'000'000, 'a');
  TRegExpr search("(?:a|x)(?:a|b)*?c");
  int asked = 0;
  search.SetStopped([&asked] { return ++asked > 3; });
  EXPECT_THROW(search.Exec(text), ERegExpr);
  EXPECT_EQ(asked, 4);
}

}  // namespace
