#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "support/ActionFixture.h"
#include "textini/VekTextReplaceAction.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

struct TextReplace : ActionFixture, testing::Test {
  using ActionFixture::Run;

  TextReplace() {
    action.Filename = folder.Path("text.txt");
    action.DoReplaceText = true;
  }

  void SetScript(const char* event, const std::string& text) { action.GetScriptByName(event)->SetText(text); }

  /// What the file holds after the step, or why it failed.
  std::string Replace(const std::string& text, const std::string& searchText,
                      const std::string& replaceText) {
    folder.Write("text.txt", text);
    action.SearchText = searchText;
    action.ReplaceText = replaceText;
    if (Run(action)) return folder.Read("text.txt");
    EXPECT_EQ(folder.Read("text.txt"), text);
    return "failed";
  }

  std::string Summary(int found, int replaced) const {
    return std::to_string(found) + " matches found, " + std::to_string(replaced) +
           " replaced in file : " + folder.Path("text.txt");
  }

  TTextReplaceAction action{Context()};
};

TEST_F(TextReplace, ReplacesLineByLine) {
  enum : unsigned { kAnyCase = 1, kWords = 2 };
  const struct {
    std::string text, searchText, replaceText;
    unsigned options;
    int32_t repeat;
    std::string wanted;
    int found, replaced;
  } cases[] = {
      {"a b a\na\n", "a", "x", 0, 0, "x b x\nx\n", 3, 3},
      {"a b a\r\na\ra", "a", "x", 0, 2, "x b x\r\na\ra", 2, 2},
      {"aaaa", "aa", "a", 0, 0, "aa", 2, 2},  // what was put in is not searched again
      {"A a\xFF\xC3\x84\xC3\xA4", "\xC3\xA4", "\xFE", 0, 0, "A a\xFF\xC3\x84\xFE", 1, 1},
      {"A a\xFF\xC3\x84\xC3\xA4", "\xC3\xA4", "", kAnyCase, 0, "A a\xFF", 2, 2},
      {"a.b axb (", "a.b", "$1\\0", 0, 0, "$1\\0 axb (", 1, 1},
      {"a\r\nb", "a\r\nb", "x", 0, 0, "a\r\nb", 0, 0},
      {"ab", "", "x", 0, 0, "ab", 0, 0},
      {"cat-fish cat", "cat", "dog", kWords, 0, "cat-fish dog", 1, 1},
      {"cat,cat concat cat\n(cat)", "cat", "x", kWords, 0, "x,x concat x\n(x)", 4, 4},
      {"[cat];\tcat", "cat", "x", kWords, 0, "[x];\tcat", 1, 1},
      // Behind an occurrence that is no word others are found in any letter case, or just in one.
      {"cats CAT", "cat", "x", kWords, 0, "cats x", 1, 1},
      {"Cats CAT cat", "cat", "x", kWords | kAnyCase, 0, "Cats CAT x", 1, 1},
      // and what follows its first character counts as the beginning of a line.
      {"xaaa", "aa", "-", kWords, 0, "xa-", 1, 1},
  };
  for (const auto& test : cases) {
    action.CaseSensitive = (test.options & kAnyCase) == 0;
    action.WholeWordsOnly = (test.options & kWords) != 0;
    action.DoRepeat = test.repeat;
    EXPECT_EQ(Replace(test.text, test.searchText, test.replaceText), test.wanted) << test.text;
    EXPECT_THAT(Lines(), ElementsAre(Summary(test.found, test.replaced)));
  }
}

TEST_F(TextReplace, ReplacesMatchesOfAnExpression) {
  action.MatchRegularExpression = true;
  action.CaseSensitive = false;  // plain texts only
  const struct {
    std::string text, searchText, wanted;
    int32_t repeat;
    int replaced;
  } cases[] = {
      {"a1\r\nA2\n", "a\\d", "$0\r\nA2\n", 0, 1},
      {"x\ny\nx", "^x$", "$0\ny\nx", 1, 1},
      {"x\ny", "x.y", "x\ny", 0, 0},
      {"x\ny", "x\\ny", "$0", 0, 1},
      {"ab", "", "$0a$0b$0", 0, 3},
      {"\xFF"
       "a\xFE",
       "a", "\xFF$0\xFE", 0, 1},
  };
  for (const auto& test : cases) {
    action.DoRepeat = test.repeat;
    EXPECT_EQ(Replace(test.text, test.searchText, "$0"), test.wanted) << test.text;
    EXPECT_THAT(Lines(), ElementsAre(Summary(test.replaced, test.replaced)));
  }
}

TEST_F(TextReplace, ScriptsDecideOnEachOccurrence) {
  SetScript("OnFindText", "Vek.Log(Count + FoundText); DoReplace = Count != 1; ReplaceText += Count;");
  action.CaseSensitive = false;
  EXPECT_EQ(Replace("a A\nA", "a", "x"), "x0 A\nx2");
  EXPECT_THAT(Lines(), ElementsAre("0a", "1a", "2a", Summary(3, 2)));
  action.MatchRegularExpression = true;
  EXPECT_EQ(Replace("a A\na", "(?i)a", "x"), "a x2\nx3");
  EXPECT_THAT(Lines(), ElementsAre("1a", "2A", "3a", Summary(3, 2)));

  SetScript("OnFindText", "if (Count == 1) throw 'no';");
  for (const bool expression : {false, true}) {
    action.MatchRegularExpression = expression;
    EXPECT_EQ(Replace("a a", "a", "x"), "failed");
    EXPECT_THAT(Lines(), IsEmpty());
  }
}

TEST_F(TextReplace, AScriptRewritesWholeLines) {
  SetScript("OnFindText", "throw 'never asked';");
  SetScript("OnProcessLine", "if (LineText != 'keep a') LineText = '<' + LineText + '>';");
  action.DoRepeat = 2;
  EXPECT_EQ(Replace("a a\nb\nkeep a\r\na\na", "a", "x"), "<a a>\nb\nkeep a\r\n<a>\na");
  EXPECT_THAT(Lines(), ElementsAre(Summary(3, 2)));
  SetScript("OnProcessLine", "throw 'no';");
  EXPECT_EQ(Replace("a", "a", "x"), "failed");
}

TEST_F(TextReplace, ExpandsReferencesAndCountsThem) {
  Context().SetVariable("V", std::string("value"));
  action.DoReplaceText = false;
  action.DoReplaceVariables = true;
  action.FailOnFewReplacements = true;
  action.FailMinimumCount = 3;
  EXPECT_EQ(Replace("%V%\n$(1+1) %v% 100%%\r\n", "", ""), "value\n2 value 100%\r\n");
  EXPECT_THAT(Lines(), ElementsAre("Variables replaced in file : " + folder.Path("text.txt")));

  action.DoReplaceText = true;
  folder.Write("text.txt", "%V%\n");
  action.SearchText = "value";
  action.ReplaceText = "%V%s";
  EXPECT_FALSE(Run(action));
  EXPECT_EQ(folder.Read("text.txt"), "values\n");
  EXPECT_THAT(Lines(), ElementsAre(Summary(1, 2), "Failing because less than 3 replacements were made."));
}

TEST_F(TextReplace, ANewFileTakesTheResultOfTheLastPass) {
  Context().SetVariable("V", std::string("value"));
  action.NewFileName = folder.Path("new.txt");
  EXPECT_EQ(Replace("%V% a", "x", "y"), "%V% a");
  EXPECT_EQ(folder.Read("new.txt"), "%V% a");
  action.DoReplaceVariables = true;
  EXPECT_EQ(Replace("%V% a", "a", "y"), "%V% a");
  EXPECT_EQ(folder.Read("new.txt"), "vylue y");
  // The second pass begins with the source again.
  action.MatchRegularExpression = true;
  EXPECT_EQ(Replace("%%V% a", "a", "y"), "%%V% a");
  EXPECT_EQ(folder.Read("new.txt"), "%%V% y");
}

TEST_F(TextReplace, AFileWithoutReplacementsIsNotWritten) {
  folder.Write("text.txt", "text");
  ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path("text.txt"), FileAttribute::ReadOnly));
  action.SearchText = "z";
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre(Summary(0, 0)));
  action.SearchText = "t";
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("Error: Cannot write " + folder.Path("text.txt") + ": " +
                                   SystemText(Win32Error::AccessDenied)));
}

TEST_F(TextReplace, FailuresAreNamed) {
  action.MatchRegularExpression = true;
  const std::string matching = "Error: An error occured matching the regular expression : \r\n";
  EXPECT_EQ(Replace("a", "[", ""), "failed");
  EXPECT_THAT(Lines(), ElementsAre(StartsWith(matching + "missing terminating ]")));
  EXPECT_EQ(Replace(std::string(60, 'a') + 'b', "(a|aa)+$", ""), "failed");
  EXPECT_THAT(Lines(), ElementsAre(matching + "match limit exceeded (SearchText)"));

  action.MatchRegularExpression = false;
  EXPECT_EQ(Replace("a", "%NO_SUCH_VARIABLE_ANYWHERE%", ""), "failed");
  EXPECT_THAT(Errors(), ElementsAre(StartsWith("SearchText: ")));

  folder.Write("50%.txt", "a");
  action.Filename = folder.Path("50%%.txt");
  action.SearchText = "a";
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre(StartsWith("Error: Format '%d matches found, %d replaced in file : ")));

  action.Filename = folder.Path("missing.txt");
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("File does not exist: " + folder.Path("missing.txt")));
}

}  // namespace
