#include "gmock/gmock.h"

#include "platform/Shell.h"
#include "process/VekShellExecute.h"
#include "support/Exchanged.h"
#include "support/ScriptedServices.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A process that ends after so many waits.
class CountedProcess final : public RunningProcess {
 public:
  explicit CountedProcess(int& waits) : waits_(waits) {}
  bool EndsWithin(uint32_t /*milliseconds*/) override { return --waits_ < 0; }
  void Terminate() override {}

 private:
  int& waits_;
};

class RecordingShell final : public Shell {
 public:
  ShellRequest last;
  SysResult answer;
  std::optional<int> waits;  // of the process that is started; nothing: none is told

  SysResult Execute(const ShellRequest& request, std::unique_ptr<RunningProcess>& process) override {
    last = request;
    if (waits) process = std::make_unique<CountedProcess>(*waits);
    return answer;
  }
};

struct ShellExecuteTest : testing::Test {
  ShellExecuteTest() {
    fixture.folder.Write("a b.txt");
    fixture.Context().SetVariable("F", fixture.folder.Path("a b.txt"));
    action->SetFileSpec("%F%");
  }

  RecordingShell shell;
  ActionFixture fixture{Exchanged(&Platform::shell, shell)};
  std::unique_ptr<TVekShellExecute> action = fixture.Make<TVekShellExecute>();
};

TEST_F(ShellExecuteTest, ExpandsAllButTheVerb) {
  action->Action = "%F%";
  action->Parameters = "/p %F%";
  action->WorkingDir = fixture.folder.Path();
  EXPECT_TRUE(fixture.Run(*action));
  EXPECT_EQ(shell.last.verb, "%F%");
  EXPECT_EQ(shell.last.file, fixture.folder.Path("a b.txt"));
  EXPECT_EQ(shell.last.parameters, "/p " + fixture.folder.Path("a b.txt"));
  EXPECT_EQ(shell.last.folder, fixture.folder.Path());
  EXPECT_THAT(fixture.Lines(), IsEmpty());
}

TEST_F(ShellExecuteTest, WhatCannotBeDoneIsSaid) {
  shell.answer = SysResult::Failure(Win32Error::NoAssociation);
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(),
              ElementsAre("ShellExecute Failed with error: " + SystemText(Win32Error::NoAssociation)));
  action->SetFileSpec("%F%.not");
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(), ElementsAre("File does not exist: %F%.not"));
  action->SetFileSpec("%F%");
  action->Parameters = "%NONE%";
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(), ElementsAre("Unable to Execute file : " + fixture.folder.Path("a b.txt"),
                                           "--> unknown variable \"NONE\" (%% stands for one %)"));
}

TEST_F(ShellExecuteTest, WaitsAMinuteAtMost) {
  const struct {
    bool waits;
    std::optional<int> rounds;
    bool wanted;
  } cases[] = {{true, {}, true}, {true, 0, true}, {true, 599, true}, {true, 600, false}, {false, 600, true}};
  for (const auto& [waits, rounds, wanted] : cases) {
    action->WaitForCompletion = waits;
    shell.waits = rounds;
    EXPECT_EQ(fixture.Run(*action), wanted);
  }
  action->WaitForCompletion = true;
  shell.waits = 600;
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(), ElementsAre("Timed Out waiting to print " + fixture.folder.Path("a b.txt")));
}

TEST_F(ShellExecuteTest, WildcardsAreRefused) {
  ScriptedServices services;
  for (const char* spec : {"*.txt", "a?"}) action->SetFileSpec(spec);
  EXPECT_EQ(action->FileSpec(), "%F%");
  EXPECT_EQ(services.shown,
            StringList(2,
                       "Wildcards are not allowed.  Use with the FileIterator action to perform action on "
                       "multiple files."));
}

}  // namespace
