#include <thread>

#include "gmock/gmock.h"

#include "base/WindowsPath.h"
#include "platform/Environment.h"
#include "process/FRunProg.h"
#include "support/ProjectFixture.h"
#include "support/RunTable.h"
#include "support/TestChild.h"

using testing::ElementsAre;
using testing::StartsWith;

namespace {

struct RunProgramTest : ProjectFixture, testing::Test {
  using ActionFixture::Run;

  RunProgramTest() { action.SetProgramName(WideString(TestChild())); }

  bool RunChild(std::string_view parameters) {
    action.Params = WideString(std::string(parameters));
    return Run(action);
  }

  /// The log without the two lines that show the command.
  StringList Output() { return {Lines().begin() + 2, Lines().end()}; }

  TRunProgramAction action{Context()};
};

TEST_F(RunProgramTest, OutputIsLoggedLineByLine) {
  EXPECT_TRUE(RunChild("bytes one~n~ntwo bad"));
  EXPECT_THAT(Lines(),
              testing::IsSupersetOf(
                  {"Executing : " + TestChild(), std::string("With Command Line  : bytes one~n~ntwo bad"),
                   std::string("one"), std::string(""), std::string("two"), std::string("bad")}));
  EXPECT_EQ(Lines().size(), 6u);
}

TEST_F(RunProgramTest, TheReturnCodeMayNotExceedTheThreshold) {
  struct Case {
    int32_t code, highest;
    bool wanted;
  };
  constexpr Case kCases[] = {{0, 0, true}, {1, 0, false}, {3, 3, true}, {4, 3, false}, {0, -1, false}};
  for (const bool capture : {true, false}) {
    action.LogOutput = capture;
    for (const Case& test : kCases) {
      action.SuccessRC = test.highest;
      const std::string code = std::to_string(test.code);
      EXPECT_EQ(RunChild("exit " + code), test.wanted) << code;
      EXPECT_EQ(action.ReturnCode(), test.code);
      EXPECT_EQ(Output(), test.wanted ? StringList() : StringList{"Program returned code  : " + code});
    }
  }
}

// clang-format off
const RunCase kNotStarted[] = {
    {"NoProgram", "ProgramName=  ", "", false, "Unable to Execute Program  : |--> Program file not specified", ""},
    {"AnUnknownProgram", "ProgramName=%X%", "", false, "Unable to Execute Program  : |--> " + kUnknownX, ""},
    {"UnknownParameters", "ProgramName=a|Params=%X%", "", false, "Unable to Execute Program  : a|--> " + kUnknownX, ""},
    {"OutputWithoutWaiting", "ProgramName=a|WaitForCompletion=False", "", false,
     "Invalid options - to Log Output you must specify WaitForCompletion", ""},
};
// clang-format on

TEST(RunProgramRuns, WhatIsNotStarted) { ExpectRuns<TRunProgramAction>(kNotStarted); }

TEST_F(RunProgramTest, AMissingProgramIsNamed) {
  const std::string missing = folder.Path("missing");
  action.SetProgramName(WideString(missing));
  for (const bool capture : {true, false}) {
    action.LogOutput = capture;
    EXPECT_FALSE(RunChild("x"));
    EXPECT_THAT(Lines(), ElementsAre("Executing : " + missing, "With Command Line  : x",
                                     "Error while trying to Execute Program  : " + missing,
                                     testing::AllOf(StartsWith("--> "), testing::HasSubstr(missing))));
  }
}

TEST_F(RunProgramTest, WithoutWaitingNoCodeCounts) {
  action.WaitForCompletion = action.LogOutput = false;
  EXPECT_TRUE(RunChild("exit 5"));
}

TEST_F(RunProgramTest, StartsInItsFolderWithExpandedParameters) {
  folder.MakeFolder("in here");
  Context().SetVariable("WHAT", std::string("where"));
  action.StartInDir = WideString(folder.Path("in here") + " ");
  EXPECT_TRUE(RunChild(" %WHAT% "));
  ASSERT_EQ(Output().size(), 1u);
  EXPECT_EQ(NamePart(Output()[0]), "in here");
}

TEST_F(RunProgramTest, AStopEndsTheProgram) {
  for (const bool capture : {true, false}) {
    action.LogOutput = capture;
    std::thread user([this] {
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
      action.TerminateAction();
    });
    EXPECT_FALSE(RunChild("sleep 60"));
    user.join();
    EXPECT_EQ(action.ReturnCode(), 999);
    EXPECT_THAT(Output(), ElementsAre("Program returned code  : 999", "Terminated by user"));
  }
  EXPECT_TRUE(RunChild("exit 0"));
}

TEST_F(RunProgramTest, ScriptsRewriteTheOutput) {
  action.GetScriptByName("OnStdOut")
      ->SetText("Data = Data == 'drop' ? '' : Data + '|' + Action.Params + '|' + Process.StartDirectory;");
  action.GetScriptByName("OnStdErr")->SetText("  ");
  EXPECT_TRUE(RunChild("bytes keep~ndrop"));
  EXPECT_THAT(Output(), ElementsAre("keep|bytes keep~ndrop|", ""));
  EXPECT_TRUE(RunChild("bytes ~n raw"));
  EXPECT_THAT(Output(), testing::UnorderedElementsAre("|bytes ~n raw|", "raw"));

  action.GetScriptByName("OnStdOut")->SetText("throw new Error('no');");
  EXPECT_TRUE(RunChild("bytes kept"));
  EXPECT_THAT(Output(), ElementsAre("kept"));
  EXPECT_EQ(Errors().size(), 1u);
}

struct RunDosCommandTest : ProjectFixture, testing::Test {
  using ActionFixture::Run;

  RunDosCommandTest() { Context().SetVariable("DOSCMD", TestChild()); }
  TRunDosCMDAction action{Context()};
};

TEST_F(RunDosCommandTest, HandsTheCommandToTheInterpreter) {
  // The child stands in for an interpreter: its first argument is no mode that it knows.
  action.SetCommand(WideString("echo a"));
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("unknown mode", "Program returned code  : 99"));
  EXPECT_EQ(action.Command(), "echo a");
  EXPECT_EQ(action.GetDescription(), "Run DOS Command [ echo a ]");
}

TEST_F(RunDosCommandTest, TheSystemsInterpreterTakesTheCommandAsItStands) {
  const auto interpreter = Context().GetPlatform().environment->Variable("COMSPEC");
  Context().SetVariable("DOSCMD", interpreter.value_or("/bin/sh"));
  action.SetCommand(
      WideString(interpreter ? "echo one&& echo two" : "echo \"o n  e\" | tr a-z A-Z\necho $((1 + 1))"));
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Lines(), interpreter ? (StringList{"one", "two"}) : (StringList{"O N  E", "2"}));
}

}  // namespace
