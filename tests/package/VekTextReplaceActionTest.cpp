#include "gmock/gmock.h"

#include "support/RunTable.h"
#include "textini/VekTextReplaceAction.h"

namespace {

const std::string kFile = "Filename=%D%\\a|", kBoth = kFile + "DoReplaceText=True|DoReplaceVariables=True|";
const std::string kWords = "WholeWordsOnly=True|", kAnyCase = "CaseSensitive=False|",
                  kExpression = "MatchRegularExpression=True|";
const std::string kMatching = "Error: An error occured matching the regular expression : \r\n";

/// A replacement, as "search=replacement".
std::string Of(const std::string& replacement) {
  const size_t equals = replacement.find('=');
  return kFile + "DoReplaceText=True|SearchText=" + replacement.substr(0, equals) +
         "|ReplaceText=" + replacement.substr(equals + 1) + '|';
}

std::string Summary(int found, int replaced) {
  return std::to_string(found) + " matches found, " + std::to_string(replaced) + " replaced in file : %D%\\a";
}

/// What becomes of a text, in which a '~' is a blank.
RunCase Becomes(const std::string& set, const std::string& text, const std::string& wanted, int found,
                int replaced) {
  return {"becomes", set, "a=" + text, true, Summary(found, replaced), "a=" + wanted};
}

// clang-format off
const RunCase kRuns[] = {
    Becomes(Of("a=x"), "a~b~a\na\n", "x~b~x\nx\n", 3, 3),
    Becomes(Of("a=x") + "DoRepeat=2", "a~b~a\r\na\ra", "x~b~x\r\na\ra", 2, 2),
    Becomes(Of("aa=a"), "aaaa", "aa", 2, 2),  // what was put in is not searched again
    Becomes(Of("\xC3\xA4=\xFE"), "A~a\xFF\xC3\x84\xC3\xA4", "A~a\xFF\xC3\x84\xFE", 1, 1),
    Becomes(kAnyCase + Of("\xC3\xA4="), "A~a\xFF\xC3\x84\xC3\xA4", "A~a\xFF", 2, 2),
    Becomes(Of("a.b=$1\\0"), "a.b~axb~(", "$1\\0~axb~(", 1, 1),
    Becomes(Of("a\r\nb=x"), "a\r\nb", "a\r\nb", 0, 0),
    Becomes(Of("=x"), "ab", "ab", 0, 0),
    Becomes(kWords + Of("cat=dog"), "cat-fish~cat", "cat-fish~dog", 1, 1),
    Becomes(kWords + Of("cat=x"), "cat,cat~concat~cat\n(cat)", "x,x~concat~x\n(x)", 4, 4),
    Becomes(kWords + Of("cat=x"), "[cat];\tcat", "[x];\tcat", 1, 1),
    // Behind an occurrence that is no word others are found in any letter case, or just in one.
    Becomes(kWords + Of("cat=x"), "cats~CAT", "cats~x", 1, 1),
    Becomes(kWords + kAnyCase + Of("cat=x"), "Cats~CAT~cat", "Cats~CAT~x", 1, 1),
    // and what follows its first character counts as the beginning of a line.
    Becomes(kWords + Of("aa=-"), "xaaa", "xa-", 1, 1),

    // Expressions; the letter case is for plain texts only.
    Becomes(kExpression + kAnyCase + Of("a\\d=$0"), "a1\r\nA2\n", "$0\r\nA2\n", 1, 1),
    Becomes(kExpression + Of("^x$=$0") + "DoRepeat=1", "x\ny\nx", "$0\ny\nx", 1, 1),
    Becomes(kExpression + Of("x.y=$0"), "x\ny", "x\ny", 0, 0),
    Becomes(kExpression + Of("x\\ny=$0"), "x\ny", "$0", 1, 1),
    Becomes(kExpression + Of("=$0"), "ab", "$0a$0b$0", 3, 3),
    Becomes(kExpression + Of("a=$0"), "\xFF""a\xFE", "\xFF$0\xFE", 1, 1),

    // Scripts decide on each occurrence, or rewrite whole lines.
    {"EachOccurrence", kAnyCase + Of("a=x") + "@OnFindText=Vek.Log(Count + FoundText); DoReplace = Count != 1; ReplaceText += Count;",
     "a=a~A\nA", true, "0a|1a|2a|" + Summary(3, 2), "a=x0~A\nx2"},
    {"EachMatch", kExpression + Of("(?i)a=x") + "@OnFindText=Vek.Log(Count + FoundText); DoReplace = Count != 1; ReplaceText += Count;",
     "a=a~A\na", true, "1a|2A|3a|" + Summary(3, 2), "a=a~x2\nx3"},
    {"AScriptThatThrows", Of("a=x") + "@OnFindText=if (Count == 1) throw 'no';", "a=a~a", false, "", "a=a~a", "", "script OnFindText: no"},
    {"AScriptThatThrowsAtAMatch", kExpression + Of("a=x") + "@OnFindText=if (Count == 1) throw 'no';", "a=a~a", false, "", "a=a~a", "",
     "script OnFindText: no"},
    {"WholeLines", Of("a=x") + "DoRepeat=2|@OnFindText=throw 'never asked';|"
     "@OnProcessLine=if (LineText != 'keep a') LineText = '<' + LineText + '>';",
     "a=a~a\nb\nkeep~a\r\na\na", true, Summary(3, 2), "a=<a~a>\nb\nkeep~a\r\n<a>\na"},
    {"ALineScriptThatThrows", Of("a=x") + "@OnProcessLine=throw 'no';", "a=a", false, "", "a=a", "", "script OnProcessLine: no"},

    // References, which are counted.
    {"References", "$V=value|" + kFile + "DoReplaceVariables=True|FailOnFewReplacements=True|FailMinimumCount=3", "a=%V%\n$(1+1)~%v%~100%%\r\n", true,
     "Variables replaced in file : %D%\\a", "a=value\n2~value~100%\r\n"},
    {"ReferencesAndTexts", "$V=value|" + kBoth + "SearchText=value|ReplaceText=%V%s|FailOnFewReplacements=True|FailMinimumCount=3", "a=%V%\n", false,
     Summary(1, 2) + "|Failing because less than 3 replacements were made.", "a=values\n"},

    // A new file takes the result of the last pass; the second pass of an expression begins with the source again.
    {"ANewFile", Of("x=y") + "NewFileName=%D%\\b", "a=%V%~a", true, Summary(0, 0), "a=%V%~a b=%V%~a"},
    {"ANewFileOfBothPasses", "$V=value|" + kBoth + "SearchText=a|ReplaceText=y|NewFileName=%D%\\b", "a=%V%~a", true, Summary(2, 3), "a=%V%~a b=vylue~y"},
    {"ANewFileOfTheSecondPass", "$V=value|" + kExpression + kBoth + "SearchText=a|ReplaceText=y|NewFileName=%D%\\b", "a=%%V%~a", true,
     Summary(1, 1), "a=%%V%~a b=%%V%~y"},

    {"WithoutReplacementsNothingIsWritten", Of("z=x"), "!a=text", true, Summary(0, 0), "!a=text"},
    {"ReadOnly", Of("t=x"), "!a=text", false, "Error: Cannot write %D%\\a: {5}", "!a=text"},
    {"ALoopOfMatches", kExpression + Of("(a+a+)+$="), "a=" + std::string(60, 'a') + 'b', false, kMatching + "match limit exceeded (SearchText)",
     "a=" + std::string(60, 'a') + 'b'},
    {"AnUnknownVariable", Of("%X%="), "a=a", false, "", "a=a", "", "SearchText: " + kUnknownX},
    {"NoFile", Of("a=x"), "", false, "File does not exist: %D%\\a", ""},
};
// clang-format on

TEST(TextReplace, Runs) { ExpectRuns<TTextReplaceAction>(kRuns); }

TEST(TextReplace, FailuresThatEndInWordsOfTheirOwn) {
  const std::pair<std::string, std::string> cases[] = {
      {kExpression + "Filename=%F%|SearchText=[", kMatching + "missing terminating ]"},
      {"Filename=%F%|SearchText=a", "Error: Format '%d matches found, %d replaced in file : "},
  };
  for (const auto& [set, wanted] : cases) {
    ActionFixture fixture;
    fixture.folder.Write("50%.txt", "a");
    fixture.Context().SetVariable("F", fixture.folder.Path("50%.txt"));
    const auto action = fixture.Make<TTextReplaceAction>();
    SetProperties(*action, "DoReplaceText=True|" + set);
    EXPECT_FALSE(fixture.Run(*action));
    EXPECT_THAT(fixture.Lines(), testing::ElementsAre(testing::StartsWith(wanted)));
  }
}

TEST(TextReplace, MemoryMayRunOut) {
  ActionFixture fixture;
  fixture.folder.Write("a");
  fixture.fault = [](const PlatformCall& call) -> std::optional<SysResult> {
    if (!call.isQuestion) throw std::bad_alloc();
    return {};
  };
  TTextReplaceAction action(fixture.Context());
  action.Filename = fixture.folder.Path("a");
  EXPECT_FALSE(fixture.Run(action));
  EXPECT_EQ(fixture.Lines(), StringList{"Error: " + SystemText(Win32Error::NotEnoughMemory)});
}

}  // namespace
