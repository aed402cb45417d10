#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/ActionFixture.h"
#include "support/OsFixture.h"
#include "textini/VekTextFind.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

struct TextFind : ActionFixture, testing::Test {
  using ActionFixture::Run;

  TextFind() {
    action.SourcePath = folder.Path("text.txt");
    action.TextFindBehaviour = TTextFindBehaviour::tfPutIntoVar;
    action.PutCountIntoVar = "N";
  }

  void SetScript(const std::string& text) { action.GetScriptByName("OnFindText")->SetText(text); }

  /// The number of matches, or -1 when the step fails.
  int64_t Count(const std::string& text, const std::string& searchString) {
    folder.Write("text.txt", text);
    action.SearchString = searchString;
    if (!Run(action)) return -1;
    return std::get<int64_t>(Context().GetVariableValue("N"));
  }

  TVekTextFindAction action{Context()};
};

TEST_F(TextFind, CountsPlainTextsAndExpressions) {
  enum : unsigned { kExact = 1, kWords = 2, kExpression = 4 };
  const struct {
    std::string text, searchString;
    unsigned options;
    int64_t wanted;
  } cases[] = {
      {"a.b axb A.B", "a.b", kExact, 1},
      {"a.b axb A.B", "a.b", 0, 2},
      {"a.b axb A.B", "a.b", kExpression, 2},
      {"a.b axb A.B", "(?i)a.b", kExpression, 3},
      {"\\[^$.|?*+()", "\\[^$.|?*+()", kExact, 1},
      {"aa a{2}", "a{2}", kExact, 1},  // braces are left as they are
      {"cat cats Cat concat cat", "cat", kWords, 3},
      {"cat cats Cat concat cat", "cat", kWords | kExact, 2},
      {"\xC3\x84rger \xC3\xA4rger", "\xC3\xA4R", 0, 2},
      {"\xFF"
       "needle\xFF\xFE"
       "needle",
       "needle", 0, 2},
      {"\xFF\xFF", "\xFF", 0, 2},
      {"a\r\nb\r\n", "a\r\nb", 0, 1},
      {"a\r\nb\nc\n", "(?m)$", kExpression, 4},
      {"abc", "", 0, 4},
      {"abc", "x*", kExpression, 4},
      {"", "x", 0, 0},
  };
  for (const auto& test : cases) {
    action.CaseSensitive = (test.options & kExact) != 0;
    action.WholeWords = (test.options & kWords) != 0;
    action.MatchRegExpr = (test.options & kExpression) != 0;
    EXPECT_EQ(Count(test.text, test.searchString), test.wanted) << test.text << " / " << test.searchString;
    EXPECT_THAT(Errors(), IsEmpty());
  }
}

/// Files are searched window by window: wherever a window ends, the same is found at the same place.
TEST_F(TextFind, NothingIsLostBetweenWindows) {
  SetScript("Vek.Log(Offset + FoundText);");
  action.WholeWords = true;
  const std::string filler = "\xC3\xA4 cats ";
  for (size_t shift = 0; shift < 8; ++shift) {
    std::string text(shift, '.');
    while (text.size() < 600'000) text += filler;
    for (const size_t place : {262'100, 262'144, 262'160, 524'300}) {
      size_t start = text.find(filler, place);
      text.replace(start + 3, 4, "CAT ");
    }
    StringList wanted;
    for (size_t hit = 0; (hit = text.find("CAT", hit)) != std::string::npos; ++hit) {
      wanted.push_back(std::to_string(CharacterCount(text.substr(0, hit)) + 1) + "CAT");
    }
    wanted.push_back("Found " + std::to_string(wanted.size()) + " matches.");
    EXPECT_EQ(Count(text, "cat"), static_cast<int64_t>(wanted.size()) - 1);
    EXPECT_EQ(Lines(), wanted) << shift;
  }
}

TEST_F(TextFind, TheScriptSeesEachMatch) {
  SetScript("Vek.Log(Count + ' ' + FoundText + ' ' + Offset + ' ' + Action.MatchRegExpr);");
  action.MatchRegExpr = true;
  EXPECT_EQ(Count("\xC3\xA4 one\ntwo", "\\w{3}"), 2);
  EXPECT_THAT(Lines(), ElementsAre("1 one 3 true", "2 two 7 true", "Found 2 matches."));
  EXPECT_THAT(Events().events, testing::Contains("progress  Found 1 matches 80"));
  EXPECT_THAT(Events().events, testing::Contains("progress  Found 2 matches 100"));

  SetScript("if (Count == 2) throw 'enough';");
  EXPECT_EQ(Count("a a a", "a"), -1);
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_THAT(Errors(), ElementsAre(StartsWith("script OnFindText")));
}

TEST_F(TextFind, TheCountDecides) {
  const auto kLess = TTextFindBehaviour::tfFailOnLess, kMore = TTextFindBehaviour::tfFailOnMore;
  const struct {
    std::string text;
    TTextFindBehaviour behaviour;
    int32_t limit;
    StringList wanted;  // the last line tells why it fails
  } cases[] = {
      {"", kLess, 1, {"No matches were found.", "Failing due to insufficient matches."}},
      {"", kLess, 0, {"No matches were found."}},
      {"a", kLess, 1, {"Found 1 match."}},
      {"a", kMore, 1, {"Found 1 match."}},
      {"a a", kMore, 1, {"Found 2 matches.", "Failing due to too many matches."}},
  };
  for (const auto& test : cases) {
    action.TextFindBehaviour = test.behaviour;
    action.FailMatchCount = action.FailOnMoreMatchCount = test.limit;
    folder.Write("text.txt", test.text);
    action.SearchString = "a";
    EXPECT_EQ(Run(action), test.wanted.size() == 1);
    EXPECT_EQ(Lines(), test.wanted);
  }
}

TEST_F(TextFind, SearchesTheTextOfAVariable) {
  Context().SetVariable("V", int64_t{1231});
  action.UseVariable = true;
  action.VekVariable = "V";
  action.SourcePath = "%NO_SUCH_VARIABLE_ANYWHERE%";
  EXPECT_EQ(Count("", "1"), 2);
  action.VekVariable = "%V%";
  EXPECT_EQ(Count("", "1"), -1);
  EXPECT_THAT(Lines(), ElementsAre("Search failed: variable \"%V%\" is not defined"));
}

TEST_F(TextFind, WhatCannotBeSearchedIsReported) {
  action.MatchRegExpr = true;
  EXPECT_EQ(Count("text", "(("), -1);
  const std::string syntax = "A syntax error occured parsing the Regular Expression : ";
  EXPECT_THAT(Lines(), ElementsAre(syntax + "missing closing parenthesis after character 2 (Search String)"));
  EXPECT_EQ(Count(std::string(60, 'a') + 'b', "(a|aa)+$"), -1);
  EXPECT_THAT(Lines(), ElementsAre(syntax + "match limit exceeded (Search String)"));
  action.MatchRegExpr = false;
  EXPECT_EQ(Count("text", "a{9}{99999}"), -1);
  EXPECT_THAT(Lines(), ElementsAre("An internal error occured parsing the input string."));

  action.SourcePath = folder.Path("missing.txt");
  for (const bool expression : {false, true}) {
    action.MatchRegExpr = expression;
    EXPECT_EQ(Count("", "x"), -1);
    EXPECT_THAT(Lines(), ElementsAre("Search failed: " + folder.Path("missing.txt") + ": " +
                                     SystemText(Win32Error::FileNotFound)));
  }
}

TEST_F(TextFind, AStopEndsItInSilence) {
  SetScript("Vek.Log('seen');");
  action.SearchString = "a";
  folder.Write("text.txt", "aaa");
  Context().Stop().RequestStop();
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), IsEmpty());
}

}  // namespace
