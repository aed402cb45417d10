#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/Vekrun.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

struct Run : testing::Test {
  VekrunResult RunProject(const std::string& text, const StringList& options = {},
                          const ProgramSetup& setup = {}) {
    folder.Write("p.vekproj", text);
    StringList arguments{"run", folder.Path("p.vekproj")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunJsonl(arguments, setup);
  }

  TempFolder folder;
};

const std::string kEndless = "(function () { for (;;) {} })()";

TEST_F(Run, ReportsEveryStepOfANestedProject) {
  folder.Write("a.tmp", "x");
  const auto result = RunProject(ProjectOf(
      ActionOf("HCREATEFILE", "<NewFileName>%OUT%\\b.tmp</NewFileName><FileContents>$(1+1)</FileContents>") +
          ActionOf("ACTIONGROUP", "<Description>clean</Description>",
                   ActionOf("HDELETE_FILE", "<FileSpec>%OUT%\\*.tmp</FileSpec>") +
                       ActionOf("HDELETE_FILE",
                                "<FileSpec>%OUT%\\*.tmp</FileSpec><IgnoreFailure>True</IgnoreFailure>") +
                       ActionOf("HDELETE_FILE", "<Condition>COUNT &gt; 3</Condition>")),
      "<Variable Name=\"OUT\">%PROJECTDIR%</Variable><Variable Name=\"COUNT\" "
      "Type=\"Integer\">3</Variable>"));
  EXPECT_EQ(result.exitCode, 0) << result.err;
  const std::string out = folder.Path();
  EXPECT_THAT(
      result.Short(),
      ElementsAre("build-start", "start /1", "message /1 File created: " + out + "\\b.tmp", "end /1 success",
                  "start /2", "start /2/1",
                  "status /2/1 Deleting files : " + out + "\\*.tmp|2 Files Deleted.", "end /2/1 success",
                  "start /2/2", "status /2/2 Deleting files : " + out + "\\*.tmp|0 Files Deleted.",
                  "error /2/2 The step failed because of its setting FailIfNoFile", "end /2/2 failure",
                  "start /2/3", "end /2/3 skipped", "end /2 success", "build-end success"));
  EXPECT_EQ(result.Of("action-start")[1].at("title"), "clean");
  EXPECT_EQ(result.events.back().at("actions"), 4);
  EXPECT_EQ(result.events.back().at("failures"), 1);
  EXPECT_THAT(folder.Names(), ElementsAre("p.vekproj"));
}

TEST_F(Run, AnErrorSaysWhereItIsAndHowItIsMended) {
  const struct {
    std::string command, error, remedy;
  } cases[] = {
      {"echo %VERISON%", "unknown variable \"VERISON\"; did you mean \"VERSION\"? (", "%% stands for one %)"},
      {"date +%Y-%m", "unknown variable \"Y-\" (", "%% stands for one %)"},
      {"echo $(git log)", "expression \"$(git log)\": SyntaxError: ", "$$( stands for $()"},
  };
  for (const auto& test : cases) {
    const auto result = RunProject(
        ProjectOf(ActionOf("ACTIONGROUP", "", ActionOf("HRUNDOS", "<Command>" + test.command + "</Command>")),
                  "<Variable Name=\"VERSION\"/>"));
    const std::string error = result.Of("status").at(0).at("lines").at(1);
    EXPECT_THAT(error, HasSubstr(test.error));
    EXPECT_THAT(error, testing::EndsWith("p.vekproj:5, property Command; " + test.remedy));
  }
}

TEST_F(Run, AnUnknownNameIsToldWithItsPlaceAndANearOne) {
  const struct {
    std::string action, wanted;
  } cases[] = {
      {ActionOf("HCREATEFILE", "<NewFileName>$(VERISON)</NewFileName>"), "6, property NewFileName; "},
      {ActionOf("ACTIONGROUP", "<Condition>VERISON == 1</Condition>"), "6, property Condition)"},
      {ActionOf("FILESETCOPY", "<FileSetName>S</FileSetName><DestinationFolder>x</DestinationFolder>"),
       "4, file set \"S\"; "},
  };
  for (const auto& test : cases) {
    std::string text = ProjectOf(test.action, "<Variable Name=\"VERSION\"/>");
    text.insert(text.find("<Actions>"),
                "<FileSets><FileSet Name=\"S\" BaseDirectory=\"%VERISON%\"/></FileSets>\n");
    folder.Write("p.vekproj", text);
    EXPECT_THAT(RunVekrun({folder.Path("p.vekproj")}).out,
                AllOf(HasSubstr("; did you mean \"VERSION\"? ("), HasSubstr("p.vekproj:" + test.wanted)));
  }
}

TEST_F(Run, AFailedActionEndsTheBuild) {
  const auto result = RunProject(ProjectOf(
      ActionOf("HDELETE_FILE", "<FileSpec>%PROJECTDIR%\\*.no</FileSpec>", ActionOf("ACTIONGROUP", "")) +
      ActionOf("ACTIONGROUP", "")));
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.Of("action-start"), testing::SizeIs(1));
  EXPECT_EQ(result.events.back().at("result"), "failure");
}

const std::string kCopyWithErrors =
    "<FileSpec>%PROJECTDIR%/in/*</FileSpec><Target>%PROJECTDIR%/out</Target><Recurse>True</Recurse>"
    "<FailIfExists>True</FailIfExists><TargetIsDir>True</TargetIsDir>";

TEST_F(Run, ErrorsThatAStepLogsAreCountedAndFailItWhenStrict) {
  folder.Write("in/s/a", "new");
  folder.Write("in/t/b", "new");
  folder.Write("out/s/a", "old");
  folder.Write("out/t/b", "old");
  const std::string project = ProjectOf(ActionOf("ACTIONGROUP", "", ActionOf("HCOPYFILES", kCopyWithErrors)));
  const auto lenient = RunProject(project);
  ASSERT_EQ(lenient.exitCode, 0) << lenient.out << lenient.err;
  EXPECT_EQ(lenient.Of("action-end")[0].at("errors"), 2);
  EXPECT_EQ(lenient.Of("action-end")[1].at("errors"), 0);
  const ProgramResult text = RunVekrun({folder.Path("p.vekproj")});
  EXPECT_THAT(text.out, HasSubstr("\nSucceeded, 2 errors logged by 1 step: 2 actions in "));
  const ProgramResult strict = RunVekrun({folder.Path("p.vekproj"), "--strict"});
  EXPECT_EQ(strict.exitCode, 1);
  EXPECT_THAT(strict.out, HasSubstr("\nFailed steps:\n  /1/1 Copy"));
}

TEST_F(Run, ReportsTellTheSameAsTheLogAndEachHasAFileOfItsOwn) {
  const std::string project = ProjectOf(ActionOf(
      "LISTITERATOR", "<LoopVariable>I</LoopVariable><ListOfItems><Line>a</Line><Line>b</Line></ListOfItems>",
      ActionOf("HCREATEFILE", "<NewFileName>%PROJECTDIR%/%I%</NewFileName>") +
          ActionOf("HDELETE_FILE",
                   "<FileSpec>%PROJECTDIR%/*.no</FileSpec><IgnoreFailure>True</IgnoreFailure>")));
  const auto result =
      RunProject(project, {"--report", "jsonl=" + folder.Path("r.jsonl"), "--report",
                           "junit=" + folder.Path("r.xml"), "--report", "text=" + folder.Path("r.txt")});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_EQ(folder.Read("r.jsonl"), result.out);
  EXPECT_THAT(folder.Read("r.xml"), AllOf(HasSubstr("tests=\"4\" failures=\"0\" errors=\"0\" skipped=\"2\""),
                                          HasSubstr("(pass 2)"), testing::EndsWith("</testsuites>\n")));
  EXPECT_THAT(folder.Read("r.txt"), HasSubstr("\nSucceeded: 5 actions, 2 failures ignored, "));

  const std::string before = folder.Read("r.txt");
  const struct {
    StringList reports;
    std::string message;
  } kRefused[] = {
      {{folder.Path("p.vekproj")}, "p.vekproj: it is the project"},
      {{folder.Path("r.txt"), folder.Path("./r.txt")},
       folder.Path("./r.txt") + ": it is the report " + folder.Path("r.txt")},
      {{folder.Path("missing/r")}, "cannot write the report " + folder.Path("missing/r")},
  };
  for (const auto& [reports, message] : kRefused) {
    StringList arguments{"run", folder.Path("p.vekproj")};
    for (const std::string& report : reports)
      arguments.insert(arguments.end(), {"--report", "junit=" + report});
    const ProgramResult refused = RunVekrun(arguments);
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_THAT(refused.err, HasSubstr(message));
    EXPECT_EQ(SplitLines(refused.err).size(), 1u);
    EXPECT_EQ(folder.Read("r.txt"), before);
  }
}

TEST_F(Run, KeepGoingRunsWhatComesAfterAFailedStepAndFailsAtTheEnd) {
  const std::string failing = ActionOf("HDELETE_FILE", "<FileSpec>%PROJECTDIR%/*.no</FileSpec>");
  const auto result =
      RunProject(ProjectOf(ActionOf("LISTITERATOR",
                                    "<LoopVariable>I</LoopVariable><ListOfItems><Line>1</Line><Line>2</Line>"
                                    "</ListOfItems>",
                                    failing + ActionOf("ACTIONGROUP", "")) +
                           ActionOf("ACTIONGROUP", "")),
                 {"-k"});
  EXPECT_EQ(result.exitCode, 1);
  StringList ends;
  for (const auto& event : result.Of("action-end"))
    ends.push_back(event.at("path").get<std::string>() + ' ' + event.at("result").get<std::string>());
  EXPECT_THAT(ends, ElementsAre("/1/1 failure", "/1/2 success", "/1/1 failure", "/1/2 success", "/1 failure",
                                "/2 success"));
}

TEST_F(Run, TitlesShowTheValuesThatVariablesHaveAsTheStepStarts) {
  const std::string title =
      "<Description>%I% of %i%, $(I + '%I%') %NOPE% %PATH% 100%% %S% %S4%</Description>";
  const auto result = RunProject(ProjectOf(
      ActionOf("LISTITERATOR",
               "<LoopVariable>I</LoopVariable><ListOfItems><Line>a</Line><Line>b</Line></ListOfItems>",
               ActionOf("ACTIONGROUP", title)) +
          ActionOf("ACTIONGROUP", "<Description>%I% $(</Description>"),
      "<Variable Name=\"S\" Secret=\"True\">p</Variable>"
      "<Variable Name=\"S4\" Secret=\"True\">pass</Variable>"));
  StringList titles;
  for (const auto& event : result.Of("action-start")) titles.push_back(event.at("title"));
  const std::string rest = ", $(I + '%I%') %NOPE% %PATH% 100% ******** ********";
  EXPECT_THAT(titles, ElementsAre(testing::_, "a of a" + rest, "b of b" + rest, "%I% $("));
}

TEST_F(Run, CommandLineVariablesStandAsTheyAreAndMustFit) {
  const std::string project =
      ProjectOf(ActionOf("HCREATEFILE",
                         "<NewFileName>%PROJECTDIR%\\o</NewFileName>"
                         "<OverwriteExisting>1</OverwriteExisting>"
                         "<FileContents>%A%|%B%|$(N + 1)|%NEW%</FileContents>"),
                "<Variable Name=\"A\">a</Variable><Variable Name=\"B\">[%a%]</Variable>"
                "<Variable Name=\"N\" Type=\"Integer\">1</Variable>");
  EXPECT_EQ(RunProject(project, {"-D", "a=%x%", "-D", "N=41", "-D", "NEW=y=z"}).exitCode, 0);
  EXPECT_EQ(folder.Read("o"), "%x%|[%x%]|42|y=z");
  const auto refused = RunProject(project, {"-D", "N=many", "-D", "NEW="});
  EXPECT_EQ(refused.exitCode, 2);
  EXPECT_THAT(refused.err, AllOf(HasSubstr("N"), HasSubstr("\"many\""), HasSubstr("Integer")));
}

TEST_F(Run, WhatADeclaredValueLogsIsNotLost) {
  const auto result = RunProject(ProjectOf("", "<Variable Name=\"A\">$(Vek.Log(\"early\") || 1)</Variable>"));
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.Short(), ElementsAre("message  early", "build-start", "build-end success"));
}

TEST_F(Run, AnUnusableProjectIsRefusedBeforeAnythingRuns) {
  folder.Write("keep.tmp", "x");
  folder.Write("log", "of an earlier build");
  const std::string file = folder.Path("p.vekproj");
  const auto result =
      RunProject(ProjectOf(ActionOf("HDELETE_FILE", "<FileSpec>%PROJECTDIR%\\*.tmp</FileSpec>") +
                           "<Action Type=\"HDELETE_FILES\"/>"),
                 {"--log", folder.Path("log")});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(
      result.err,
      "vekrun: " + file + ":5: action /2: unknown type \"HDELETE_FILES\"; did you mean \"HDELETE_FILE\"?\n");
  EXPECT_THAT(result.out, IsEmpty());
  EXPECT_EQ(folder.Read("keep.tmp"), "x");
  EXPECT_EQ(folder.Read("log"), "of an earlier build");
}

TEST_F(Run, ValidateRefusesIncompleteSettings) {
  const std::string project =
      ProjectOf(ActionOf("HDELETE_FILE", "") +
                ActionOf("ACTIONGROUP", "<Enabled>False</Enabled>", ActionOf("HDELETE_FILE", "")));
  const std::string problem = ":4: /1 HDELETE_FILE: File Spec: The file spec has not been set\n";
  EXPECT_EQ(RunProject(project).exitCode, 1);
  const auto refused = RunProject(project, {"--validate"});
  EXPECT_EQ(refused.exitCode, 2);
  EXPECT_EQ(refused.err, folder.Path("p.vekproj") + problem);
  EXPECT_THAT(refused.out, IsEmpty());
}

TEST_F(Run, CtrlCStopsTheBuild) {
  const auto result =
      RunProject(ProjectOf(ActionOf("ACTIONGROUP", "<Condition>" + kEndless + "</Condition>") +
                           ActionOf("ACTIONGROUP", "")),
                 {}, {.interruptAt = "action-start"});
  EXPECT_EQ(result.exitCode, 130) << result.out << result.err;
  EXPECT_EQ(result.events.back().at("result"), "stopped");
  EXPECT_THAT(result.Of("action-start"), testing::SizeIs(1));
}

TEST_F(Run, AScriptThatCannotBeInterruptedEndsTheBuild) {
  const std::string lost = "var a = []; a.length = 4294967295; a.reverse()";
  const auto result = RunProject(ProjectOf(
      ActionOf("ACTIONGROUP", "<TimeoutSeconds>1</TimeoutSeconds>",
               "<Action Type=\"SCRIPTACTION\"><Script Event=\"OnExecute\">" + lost + "</Script></Action>")));
  EXPECT_EQ(result.exitCode, 1) << result.out << result.err;
  EXPECT_THAT(result.Short(),
              ElementsAre("build-start", "start /1", "start /1/1", "error /1 Timed out after 1 seconds",
                          "error /1/1 The script goes on although it was asked to end; the build ends "
                          "without it",
                          "end /1/1 failure", "end /1 failure", "build-end failure"));
}

TEST_F(Run, ALogThatNobodyReadsEndsTheBuild) {
  std::string many;
  for (int i = 0; i < 5000; ++i) many += ActionOf("ACTIONGROUP", "");
  folder.Write("p.vekproj", ProjectOf(many));
  const auto closed = RunVekrun({"run", folder.Path("p.vekproj"), "-v"}, {.closeOutputAfter = 100});
  EXPECT_EQ(closed.exitCode, 1);
  EXPECT_THAT(closed.err, StartsWith("vekrun: cannot write the log: "));
}

TEST_F(Run, AJunitLogHasATestCasePerLeaf) {
  folder.Write("p.vekproj", ProjectOf(ActionOf("ACTIONGROUP", "",
                                               ActionOf("HDELETE_FILE", "<FileSpec>nowhere\\*</FileSpec>"))));
  const auto result = RunVekrun({"run", folder.Path("p.vekproj"), "--log-format", "junit"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.out, AllOf(HasSubstr("tests=\"1\""), HasSubstr("failures=\"1\""),
                                HasSubstr("classname=\"Action Group\"")));
}

TEST_F(Run, AnOptionStoreThatCannotBeReadIsExitCode2) {
  folder.Write("vekrun/options.json", "[]");
  EXPECT_EQ(RunVekrun({"actions"}, {.environment = {DataFolderIn(folder.Path())}}).exitCode, 2);
}

}  // namespace
