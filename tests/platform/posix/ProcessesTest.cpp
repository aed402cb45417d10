#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

#include "gmock/gmock.h"

#include "platform/ProcessesTesting.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class PosixProcessesTest : public ProcessesTest {
 protected:
  ~PosixProcessesTest() override { SetVariable("PATH", path); }

  void WriteScript(const std::string& name, const std::string& text) {
    folder.Write(name, text);
    SetMode(Path(name), 0755);
  }

  const std::optional<std::string> path = environment.Variable("PATH");
};

TEST_F(PosixProcessesTest, AShellGetsItsCommandAsItStands) {
  const std::pair<std::string, StringList> cases[] = {
      {"echo one two | tr a-z A-Z", {"ONE TWO"}},
      {R"(printf '[%s]' "a  b" 'c"d' \\)", {R"([a  b][c"d][\])"}},
      {"x=5; echo $((x * 2)) $HOME_NOT_SET.", {"10 ."}},
      {"echo a\necho b", {"a", "b"}},
      {"  echo padded", {"padded"}},
      {"echo to-err >&2; exit 0", {}},
  };
  for (const auto& [command, wanted] : cases) {
    EXPECT_EQ(Run("/bin/sh", "/c " + command), 0);
    EXPECT_EQ(output.out, wanted) << command;
  }
  EXPECT_EQ(Run("sh", "/C exit 3"), 3);
  EXPECT_EQ(Run("/bin/bash", "/c [[ a == a ]] && echo yes"), 0);
  EXPECT_THAT(output.out, ElementsAre("yes"));
  EXPECT_EQ(Run("sh", "/c"), 0);
  WriteScript("nosh", "#!/bin/sh\necho \"$@\"");
  EXPECT_EQ(Run(Path("nosh"), "/c a  b"), 0);
  EXPECT_THAT(output.out, ElementsAre("/c a b"));
}

TEST_F(PosixProcessesTest, ASecondQuoteInsideQuotesIsAPlainOne) {
  EXPECT_EQ(RunChild(R"(args "say ""hi you""" b)"), 0);
  EXPECT_THAT(output.out, ElementsAre(R"([say "hi you"])", "[b]"));
}

TEST_F(PosixProcessesTest, DeathBySignalIsACodeOfItsOwn) {
  EXPECT_EQ(Run("sh", "/c kill -9 $$"), 128 + 9);
  // What this program ignores takes its usual effect in others.
  EXPECT_EQ(Run("sh", "/c kill -PIPE $$; echo alive"), 128 + 13);
  EXPECT_EQ(Run("sh", "/c kill -XFSZ $$; echo alive"), 128 + 25);
  EXPECT_THAT(output.out, IsEmpty());
}

TEST_F(PosixProcessesTest, ProgramsAreFoundAsFilesAre) {
  WriteScript("Sub/Tool", "#!/bin/sh\necho tool $0");
  for (const std::string& program :
       {Path("Sub/Tool"), Path("SUB/tool"), Path("Sub\\Tool"), std::string("Q:\\sub\\TOOL")}) {
    EXPECT_EQ(Run(program), 0) << program;
    EXPECT_THAT(output.out, ElementsAre("tool " + Path("Sub/Tool"))) << program;
  }
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  EXPECT_EQ(Run(ProcessSetup{.program = "sub\\tool", .startDirectory = "/"}), 0);
  EXPECT_EQ(Run("Sub/../Sub/Tool"), 0);
  ASSERT_TRUE(environment.SetCurrentFolder(Path("Sub")));
  EXPECT_EQ(Run("Tool"), -1) << "not looked up in the current folder";
  SetVariable("PATH", "::/vek-missing:" + Path("Sub"));
  EXPECT_EQ(Run("Tool"), 0);
  SetVariable("PATH", std::nullopt);
  EXPECT_EQ(Run("true"), 0);
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

TEST_F(PosixProcessesTest, WhatIsNoProgramIsRefused) {
  folder.Write("plain", "#!/bin/sh\n");
  EXPECT_EQ(Run(Path("plain")), -1);
  EXPECT_EQ(started.code, Win32Error::AccessDenied);
  SetVariable("PATH", folder.Path());
  EXPECT_EQ(Run("plain"), -1);
  EXPECT_EQ(started.code, Win32Error::AccessDenied);
  EXPECT_EQ(Run(Path("missing/plain")), -1);
  EXPECT_EQ(started.code, Win32Error::PathNotFound);
  EXPECT_EQ(Run("/bin/true", std::string("a\0b", 3)), -1);
  EXPECT_EQ(started.code, Win32Error::InvalidParameter);
  EXPECT_EQ(Run("/bin/true", std::string(4'000'000, 'x')), -1);
  EXPECT_EQ(started.code, Win32Error::FilenameExcedRange);
}

TEST_F(PosixProcessesTest, AScriptThatNamesNoInterpreterIsTheShells) {
  WriteScript("plain", "echo \"$1,$2\"; exit 5");
  EXPECT_EQ(Run(Path("plain"), R"("a b" c)"), 5);
  EXPECT_THAT(output.out, ElementsAre("a b,c"));
}

TEST_F(PosixProcessesTest, AWindowsProgramNeedsWine) {
  folder.Write("setup.any", "MZ\x90");
  SetVariable("PATH", folder.Path());
  EXPECT_EQ(Run(Path("setup.any")), -1);
  EXPECT_EQ(started.code, Win32Error::BadExeFormat);
  EXPECT_THAT(processes.StartAdvice(started.code), HasSubstr("Wine"));
  WriteScript("wine", "#!/bin/sh\nprintf '[%s]' \"$@\"");
  EXPECT_EQ(Run(Path("SETUP.any"), R"(/q "a b")"), 0);
  EXPECT_THAT(output.out, ElementsAre("[" + Path("setup.any") + "][/q][a b]"));
  EXPECT_EQ(Run("setup.any"), 0);
}

TEST_F(PosixProcessesTest, OpenFilesAreNotInherited) {
  SysResult opened;
  const auto file = owner->GetConsole().OpenFile(Path("log"), opened);
  const auto open = [] {
    return std::ranges::distance(std::filesystem::directory_iterator("/proc/self/fd"));
  };
  EXPECT_EQ(Run("true"), 0);
  const auto before = open();
  for (int i = 0; i < 20; ++i) EXPECT_EQ(Run("sh", "/c cd /proc/self/fd && echo *"), 0);
  EXPECT_EQ(open(), before);
  EXPECT_EQ(Run("ls", "/proc/self/fd"), 0);
  for (const std::string& number : output.out) {
    const int flags = fcntl(std::stoi(number), F_GETFD);
    EXPECT_TRUE(std::stoi(number) <= 2 || flags < 0 || (flags & FD_CLOEXEC) == 0) << number;
  }
}

TEST_F(PosixProcessesTest, WhatNobodyReceivesGoesToStandardError) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  int32_t exitCode = -1;
  EXPECT_TRUE(
      processes.Run({.program = "sh", .parameters = "/c echo out; echo err >&2"}, nullptr, stop, exitCode));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "out\nerr\n");
  EXPECT_EQ(exitCode, 0);
}

TEST_F(PosixProcessesTest, AStopLeavesTimeToWhatOutlivesItsParent) {
  const std::string cleaner = "trap 'sleep 0.2; echo cleaned up; exit' TERM; echo ready";
  const std::string command = "(" + cleaner + "; while :; do sleep 0.02; done) & wait";
  EXPECT_EQ(RunAndStopAt("ready", "sh", "/c " + command), kProcessStopped);
  EXPECT_THAT(output.out, ElementsAre("ready", "cleaned up"));
}

TEST_F(PosixProcessesTest, AStopEndsASuspendedProgram) {
  EXPECT_EQ(RunAndStopAt("ready", "sh", "/c echo ready; kill -STOP $$"), kProcessStopped);
}

TEST_F(PosixProcessesTest, ASecondInterruptEndsTheProgramByForce) {
  output.atLine = [](std::string_view) { SendInterrupt(), SendInterrupt(); };
  const std::string command = "trap '' TERM; echo $$ >'" + Path("number") + "'; echo ready; sleep 60 & wait";
  const ProcessSetup setup{.program = "sh", .parameters = "/c " + command};
  int32_t exitCode = 0;
  const auto run = [&] {
    const auto guard = owner->GetConsole().OnInterrupt([] {});
    processes.Run(setup, &output, stop, exitCode);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(130), "");
  const unsigned long number = std::stoul(folder.Read("number"));
  for (int i = 0; i < 1000 && ProcessRuns(number); ++i) usleep(10'000);
  EXPECT_FALSE(ProcessRuns(number));
}

TEST_F(PosixProcessesTest, AStopReachesWhatLeftTheSessionAndNoOther) {
  const auto daemon = [this](const std::string& file) {
    return "(setsid sh -c 'echo $$ >" + Path(file) + "; echo ready; exec sleep 60' &);";
  };
  const auto awaited = [this](const std::string& file) {
    return "until [ -s " + Path(file) + " ]; do sleep 0.01; done;";
  };
  const auto runs = [this](const std::string& file) { return ProcessRuns(std::stoul(folder.Read(file))); };
  EXPECT_EQ(Run("sh", "/c " + daemon("left") + awaited("left")), 0);
  ASSERT_TRUE(processes.Start({.program = "sh", .parameters = "/c " + daemon("started")}));
  const std::string command = awaited("started") + daemon("stopped") + "sleep 60";
  EXPECT_EQ(RunAndStopAt("ready", "sh", "/c " + command), kProcessStopped);
  EXPECT_FALSE(runs("stopped"));
  for (const char* file : {"left", "started"}) {
    EXPECT_TRUE(runs(file)) << file;
    kill(std::stoi(folder.Read(file)), SIGKILL);
  }
}

TEST_F(PosixProcessesTest, AStopReachesProcessGroupsOfTheirOwn) {
  const std::string command = "/c timeout 60 '" + TestChild() + "' sleep 60 ready; echo after";
  EXPECT_EQ(RunAndStopAt("ready", "sh", command), kProcessStopped);
  EXPECT_FALSE(ProcessRuns(output.NumberAfter("ready")));
}

}  // namespace
