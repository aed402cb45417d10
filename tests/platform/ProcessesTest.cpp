#include <chrono>
#include <stdexcept>
#include <thread>

#include "gmock/gmock.h"

#include "platform/ProcessesTesting.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST_F(ProcessesTest, ParametersAreTakenApartAsOnWindows) {
  const std::pair<std::string, StringList> cases[] = {
      {"", {}},
      {"a b", {"a", "b"}},
      {" \ta \t b ", {"a", "b"}},
      {R"("a b" c)", {"a b", "c"}},
      {R"(a" "b)", {"a b"}},
      {R"("" x)", {"", "x"}},
      {R"(a\b \\s\d)", {R"(a\b)", R"(\\s\d)"}},
      {R"(\"q\")", {R"("q")"}},
      {R"("a\\" b)", {R"(a\)", "b"}},
      {R"("a\\\" b")", {R"(a\" b)"}},
      {R"("C:\My Files\\" $x 'y')", {R"(C:\My Files\)", "$x", "'y'"}},
      {"\xC3\xA4\xE2\x82\xAC", {"\xC3\xA4\xE2\x82\xAC"}},
  };
  for (const auto& [parameters, wanted] : cases) {
    EXPECT_EQ(RunChild("args " + parameters), 0);
    StringList found;
    for (const std::string& line : output.out) found.push_back(line.substr(1, line.size() - 2));
    EXPECT_EQ(found, wanted) << parameters;
  }
}

TEST_F(ProcessesTest, TheExitCodeIsTheProgramsOwn) {
  for (const int32_t code : {0, 1, 3, 255}) EXPECT_EQ(RunChild("exit " + std::to_string(code)), code);
}

TEST_F(ProcessesTest, BothStreamsArriveWholeAndInOrder) {
  constexpr size_t kLines = 20'000;
  EXPECT_EQ(RunChild("fill " + std::to_string(kLines)), 0);
  ASSERT_EQ(output.out.size(), kLines + 100);
  ASSERT_EQ(output.err.size(), kLines + 100);
  for (size_t i = 0; i < output.out.size(); ++i) {
    ASSERT_EQ(output.out[i], std::to_string(i) + " out");
    ASSERT_EQ(output.err[i], std::to_string(i) + " err");
  }
}

TEST_F(ProcessesTest, LinesComeWithoutTheirEnds) {
  EXPECT_EQ(RunChild("bytes a~r~n~nlast e1~ne2~r~n"), 0);
  EXPECT_THAT(output.out, ElementsAre("a", "", "last"));
  EXPECT_THAT(output.err, ElementsAre("e1", "e2"));
}

TEST_F(ProcessesTest, AProgramReadsNothingAndSeesTheEnvironment) {
  EXPECT_EQ(RunChild("input"), 0);
  EXPECT_THAT(output.out, ElementsAre("0 bytes"));
  SetVariable("VEK_TEST_VARIABLE", "seen");
  EXPECT_EQ(RunChild("variable VEK_TEST_VARIABLE"), 0);
  EXPECT_THAT(output.out, ElementsAre("seen"));
  SetVariable("VEK_TEST_VARIABLE", std::nullopt);
}

TEST_F(ProcessesTest, AProgramStartsInTheFolderGiven) {
  folder.MakeFolder("Sub");
  EXPECT_EQ(Run({.program = TestChild(), .parameters = "where", .startDirectory = Path("Sub")}), 0);
  ASSERT_EQ(output.out.size(), 1u);
  EXPECT_TRUE(output.out[0].ends_with("/Sub")) << output.out[0];
  folder.Write("file");
  for (const char* name : {"missing", "file"}) {
    EXPECT_EQ(Run({.program = TestChild(), .parameters = "where", .startDirectory = Path(name)}), -1);
    EXPECT_EQ(started.code, Win32Error::Directory) << name;
  }
}

TEST_F(ProcessesTest, WhatCannotBeStartedSaysWhy) {
  folder.MakeFolder("folder");
  EXPECT_EQ(Run("vek-no-such-program"), -1);
  EXPECT_EQ(started.code, Win32Error::FileNotFound);
  EXPECT_EQ(Run(Path("missing.exe")), -1);
  EXPECT_EQ(started.code, Win32Error::FileNotFound);
  EXPECT_EQ(Run(Path("folder")), -1);
  EXPECT_EQ(started.code, Win32Error::AccessDenied);
  EXPECT_FALSE(processes.Start({.program = Path("missing.exe")}));
}

TEST_F(ProcessesTest, ClosedOutputIsNotTheEnd) { EXPECT_EQ(RunChild("close 7"), 7); }

TEST_F(ProcessesTest, WhatAProgramLeavesRunningIsNotWaitedFor) {
  EXPECT_EQ(Run({.program = TestChild(), .parameters = "leave 12", .timeoutSeconds = 8}), 0);
  EXPECT_THAT(output.out, ElementsAre("left"));
}

TEST_F(ProcessesTest, AStopEndsTheProgram) {
  EXPECT_EQ(RunAndStopAt("ready", TestChild(), "sleep 60 ready"), kProcessStopped);
  EXPECT_FALSE(ProcessRuns(output.NumberAfter("ready")));
  EXPECT_EQ(RunChild("exit 0"), 0) << "the signal is used up";
}

TEST_F(ProcessesTest, AStopIsPoliteFirst) {
  if (WineLimits::NoConsoleBreak()) GTEST_SKIP();
  // Its last words are still received.
  EXPECT_EQ(RunAndStopAt("ready", TestChild(), "polite"), kProcessStopped);
  EXPECT_THAT(output.out, ElementsAre("ready", "bye"));
}

TEST_F(ProcessesTest, AStopFromAnotherThreadEndsTheProgram) {
  std::thread other;
  output.atLine = [&](std::string_view) { other = std::thread([this] { stop.Signal(); }); };
  int32_t exitCode = 0;
  EXPECT_TRUE(
      processes.Run({.program = TestChild(), .parameters = "sleep 60 ready"}, &output, stop, exitCode));
  other.join();
  EXPECT_EQ(exitCode, kProcessStopped);
}

TEST_F(ProcessesTest, AStopEndsByForceWhatTheProgramStarted) {
  // The line of the one that takes no notice comes from the child.
  EXPECT_EQ(RunAndStopAt("child", TestChild(), "parent 60"), kProcessStopped);
  const unsigned long child = output.NumberAfter("child");
  EXPECT_NE(child, 0u);
  EXPECT_FALSE(ProcessRuns(child));
}

TEST_F(ProcessesTest, AStopAskedForBeforeStartsNothing) {
  stop.Signal();
  EXPECT_EQ(RunChild("bytes x"), kProcessStopped);
  EXPECT_THAT(output.out, IsEmpty());
  stop.Signal();
  stop.Reset();
  EXPECT_EQ(RunChild("exit 4"), 4);
}

TEST_F(ProcessesTest, TimeThatIsUpIsAStop) {
  EXPECT_EQ(Run({.program = TestChild(), .parameters = "sleep 60 ready", .timeoutSeconds = 1}),
            kProcessStopped);
  EXPECT_FALSE(ProcessRuns(output.NumberAfter("ready")));
}

TEST_F(ProcessesTest, AnErrorOfTheReceiverEndsTheProgram) {
  output.atLine = [](std::string_view) { throw std::runtime_error("enough"); };
  int32_t exitCode = 0;
  EXPECT_THROW(
      processes.Run({.program = TestChild(), .parameters = "sleep 60 ready"}, &output, stop, exitCode),
      std::runtime_error);
  EXPECT_FALSE(ProcessRuns(output.NumberAfter("ready")));
}

TEST_F(ProcessesTest, AProgramIsLeftRunning) {
  ASSERT_TRUE(
      processes.Start({.program = TestChild(), .parameters = "touch done", .startDirectory = Path("")}));
  for (int i = 0; i < 6000 && !folder.Exists("done"); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_TRUE(folder.Exists("done"));
}

}  // namespace
