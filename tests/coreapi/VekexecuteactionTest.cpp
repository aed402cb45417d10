#include "gmock/gmock.h"

#include "coreapi/Vekexecuteaction.h"
#include "support/ActionFixture.h"
#include "support/TestChild.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// Runs a program with the arguments it is told.
class TToolAction final : public TVekExecuteAbstractAction {
 public:
  using TVekExecuteAbstractAction::requiresFile;
  using TVekExecuteAbstractAction::skipsEmptyLines;
  using TVekExecuteAbstractAction::TVekExecuteAbstractAction;
  const ActionClass& ClassType() const override { return kClass; }

  std::string executable = TestChild(), directory;
  StringList arguments;
  bool complete = true;
  bool stopsAtOutput = false;
  int32_t lastCode = -1;

 protected:
  std::string GetExecutable() override { return executable; }
  std::string GetStartingDir() override { return directory; }
  bool GetCommandLine(ICommandLineBuilder& builder) override {
    builder.Reset(0);
    for (const std::string& argument : arguments) {
      builder.AddArgument("", argument, ArgumentQuoting::WhenNeeded);
    }
    return complete;
  }
  void BeforeExecute(ICommandLineBuilder& builder) override {
    SendMessage("Calling with " + builder.CommandLineText());
  }
  void OnProcessOutput(std::span<const std::string_view> lines) override {
    TVekExecuteAbstractAction::OnProcessOutput(lines);
    if (stopsAtOutput) TerminateAction();
  }
  bool InterpretResult(int32_t exitCode) override {
    lastCode = exitCode;
    return TVekExecuteAbstractAction::InterpretResult(exitCode) || exitCode == 3;
  }
};

struct ExecuteAction : testing::Test {
  ActionFixture fixture;
  std::unique_ptr<TToolAction> action = fixture.Make<TToolAction>();
};

TEST_F(ExecuteAction, RunsTheProgramWithTheBuiltCommandLine) {
  action->arguments = {"args", "a b", "c\\"};
  EXPECT_TRUE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(), ElementsAre("Calling with args \"a b\" c\\", "[a b]", "[c\\]"));
  fixture.folder.MakeFolder("Sub");
  action->directory = fixture.folder.Path("Sub");
  action->arguments = {"where"};
  EXPECT_TRUE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines().back(), testing::EndsWith("/Sub"));
}

TEST_F(ExecuteAction, TheExitCodeIsInterpreted) {
  action->arguments = {"exit", "3"};
  EXPECT_TRUE(fixture.Run(*action));
  action->arguments = {"exit", "4"};
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_EQ(action->lastCode, 4);
  EXPECT_EQ(fixture.Lines().back(), "Program returned code  : 4");
}

TEST_F(ExecuteAction, EmptyLinesAreLeftOutWhereWanted) {
  action->arguments = {"bytes", "a~n~nb"};
  action->skipsEmptyLines = true;
  EXPECT_TRUE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(), ElementsAre(testing::_, "a", "b"));
}

TEST_F(ExecuteAction, AMissingExecutableIsReported) {
  action->executable = " ";
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Errors(), ElementsAre("The program to execute has not been set"));
  action->executable = fixture.folder.Path("tool.exe");
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Errors(), ElementsAre(HasSubstr(SystemText(Win32Error::FileNotFound))));
  action->requiresFile = true;
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Errors(), ElementsAre("The program to execute does not exist: " + action->executable));
  EXPECT_EQ(action->lastCode, -1);
}

TEST_F(ExecuteAction, ACommandLineThatCannotBeBuiltEndsIt) {
  action->complete = false;
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(), IsEmpty());
}

TEST_F(ExecuteAction, IsTerminated) {
  EXPECT_TRUE(action->CanTerminate());
  action->arguments = {"sleep", "60", "ready"};
  action->stopsAtOutput = true;
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_EQ(action->lastCode, kProcessStopped);
  EXPECT_EQ(fixture.Lines().back(), "Terminated by user");
  action->stopsAtOutput = false;
  action->arguments = {"exit", "0"};
  EXPECT_TRUE(fixture.Run(*action));
}

TEST_F(ExecuteAction, ABuildThatStopsStartsNothing) {
  fixture.Context().Stop().RequestStop();
  action->arguments = {"exit", "0"};
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_EQ(action->lastCode, -1);
}

}  // namespace
