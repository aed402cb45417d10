#include "gmock/gmock.h"

#include "support/RunTable.h"
#include "textini/VekTextFind.h"

using testing::ElementsAre;

namespace {

const std::string kFile = "SourcePath=%D%\\a|",
                  kCount = kFile + "TextFindBehaviour=tfPutIntoVar|PutCountIntoVar=N|SearchString=";
const std::string kExact = "CaseSensitive=True|", kWords = "WholeWords=True|",
                  kExpression = "MatchRegExpr=True|";
const std::string kVariable =
    "$V=1231|UseVariable=True|SourcePath=%X%|TextFindBehaviour=tfPutIntoVar|PutCountIntoVar=N|SearchString=1|"
    "VekVariable=";
const std::string kLess = kFile + "SearchString=a|TextFindBehaviour=tfFailOnLess|FailMatchCount=";
const std::string kMore = kFile + "SearchString=a|TextFindBehaviour=tfFailOnMore|FailOnMoreMatchCount=";
const std::string kSyntax = "A syntax error occured parsing the Regular Expression : ",
                  kManyAs = "a=" + std::string(60, 'a') + 'b';

/// So many matches in a text, in which a '~' is a blank.
RunCase Counts(const std::string& text, const std::string& options, const std::string& searchString,
               int count) {
  const std::string number = std::to_string(count);
  const std::string found =
      count == 0 ? "No matches were found." : "Found " + number + (count == 1 ? " match." : " matches.");
  return {"counts",    options + kCount + searchString, "a=" + text, true, found,
          "a=" + text, "$N=Integer " + number};
}

// clang-format off
const RunCase kRuns[] = {
    Counts("a.b~axb~A.B", kExact, "a.b", 1),
    Counts("a.b~axb~A.B", "", "a.b", 2),
    Counts("a.b~axb~A.B", kExpression, "a.b", 2),
    Counts("a.b~axb~A.B", kExpression, "(?i)a.b", 3),
    Counts("\\[^$.?*+()", kExact, "\\[^$.?*+()", 1),
    Counts("aa~a{2}", kExact, "a{2}", 1),  // braces are left as they are
    Counts("cat~cats~Cat~concat~cat", kWords, "cat", 3),
    Counts("cat~cats~Cat~concat~cat", kWords + kExact, "cat", 2),
    Counts("\xC3\x84rger~\xC3\xA4rger", "", "\xC3\xA4R", 2),
    Counts("\xFF""needle\xFF\xFE""needle", "", "needle", 2),
    Counts("\xFF\xFF", "", "\xFF", 2),
    Counts("a\r\nb\r\n", "", "a\r\nb", 1),
    Counts("a\r\nb\nc\n", kExpression, "(?m)$", 4),
    Counts("abc", "", "", 4),
    Counts("abc", kExpression, "x*", 4),
    Counts("", "", "x", 0),

    {"TooFew", kLess + "1", "a=", false, "No matches were found.|Failing due to insufficient matches.", "a="},
    {"NoneIsEnough", kLess + "0", "a=", true, "No matches were found.", "a="},
    {"OneIsEnough", kLess + "1", "a=a", true, "Found 1 match.", "a=a"},
    {"OneIsNotTooMany", kMore + "1", "a=a", true, "Found 1 match.", "a=a"},
    {"TooMany", kMore + "1", "a=a~a", false, "Found 2 matches.|Failing due to too many matches.", "a=a~a"},
    {"TheTextOfAVariable", kVariable + "V", "", true, "Found 2 matches.", "", "$N=Integer 2"},
    {"AnUndefinedVariable", kVariable + "%V%", "", false, "Search failed: variable \"%V%\" is not defined", ""},
    {"NoExpression", kExpression + kCount + "((", "a=", false, kSyntax + "missing closing parenthesis after character 2 (Search String)", "a="},
    {"ALoopOfMatches", kExpression + kCount + "(a+a+)+$", kManyAs, false, kSyntax + "match limit exceeded (Search String)", kManyAs},
    {"BracesThatAreTooLarge", kCount + "a{9}{99999}", "a=", false, "An internal error occured parsing the input string.", "a="},
    {"NoFile", kCount + "x", "", false, "Search failed: %D%\\a: {2}", ""},
    {"NoFileForAnExpression", kExpression + kCount + "x", "", false, "Search failed: %D%\\a: {2}", ""},
};
// clang-format on

TEST(TextFindRuns, Table) { ExpectRuns<TVekTextFindAction>(kRuns); }

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
  EXPECT_THAT(Lines(), testing::IsEmpty());
  EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith("script OnFindText")));
}

TEST_F(TextFind, AStopEndsItInSilence) {
  SetScript("Vek.Log('seen');");
  action.SearchString = "a";
  folder.Write("text.txt", "aaa");
  Context().Stop().RequestStop();
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), testing::IsEmpty());
}

}  // namespace
