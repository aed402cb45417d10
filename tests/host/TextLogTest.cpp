#include <functional>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "host/LogTesting.h"
#include "host/log/Logs.h"

namespace {

using testing::ElementsAre;

MemoryStream Record(const TextLogStyle& style, const std::function<void(EventSink&)>& play) {
  MemoryStream stream;
  LogOutput output(stream, {});
  play(*CreateTextLog(output, style));
  return stream;
}

TEST(TextLog, ShowsABuild) {
  EXPECT_EQ(Record({}, PlaySmallBuild).Text(),
            "Building demo.vekproj\n"
            "\n"
            "Clean\n"
            "  Delete File(s): *.obj\n"
            "    Deleting files : *.obj\n"
            "     --> Access is denied.\n"
            "    0 Files Deleted.\n"
            "    failed, ignored\n"
            "  Create out\n"
            "    skipped\n"
            "  Cleaned\n"
            "\n"
            "Succeeded: 2 actions, 1 failure ignored, 2.00 s\n");
}

TEST(TextLog, VerboseAddsVariablesAndTimes) {
  EXPECT_EQ(Record({.verbosity = Verbosity::Verbose}, PlaySmallBuild).Text(),
            "Building demo.vekproj\n"
            "\n"
            "Clean\n"
            "  OUT = C:\\out\n"
            "  Delete File(s): *.obj\n"
            "    Deleting files : *.obj\n"
            "     --> Access is denied.\n"
            "    0 Files Deleted.\n"
            "    failed after 0.25 s, ignored\n"
            "  Create out\n"
            "    skipped\n"
            "  Cleaned\n"
            "  succeeded in 1.50 s: Clean\n"
            "\n"
            "Succeeded: 2 actions, 1 failure ignored, 2.00 s\n");
}

TEST(TextLog, ColoursWhatMatters) {
  EXPECT_EQ(Record({.verbosity = Verbosity::Verbose, .colours = true},
                   [](EventSink& log) {
                     log.ActionStart(kDelete);
                     log.Variable("/1/1", "N", int64_t{7});
                     log.Message("/1/1", "plain");
                     log.Error("/1/1", "bad\nworse");
                     log.ActionEnd(kDelete, {ActionResult::Stopped, 12});
                     log.BuildEnd({ActionResult::Success, 0, 1, 0});
                   })
                .Text(),
            "  \x1b[1mDelete File(s): *.obj\x1b[0m\n"
            "    \x1b[2mN = 7\x1b[0m\n"
            "    plain\n"
            "    \x1b[31merror: bad\x1b[0m\n"
            "      \x1b[31mworse\x1b[0m\n"
            "    \x1b[33mstopped after 12.0 s\x1b[0m\n"
            "\n"
            "\x1b[32mSucceeded: 1 action in 0.00 s\x1b[0m\n");
}

TEST(TextLog, IndentsEveryLineOfAText) {
  const struct {
    std::string_view path, text, wanted;
  } kCases[] = {
      {"/1", "one", "  one\n"},
      {"", "one", "one\n"},
      {"/1", "", "\n"},
      {"/1/2/3", "a\r\nb\rc\n", "      a\n      b\n      c\n"},
      {"/1", "a\n\nb", "  a\n\n  b\n"},
      {"/1", "\n", "\n"},
      {"/1", "\x1b[2Jgone\xFF", "  \\x1B[2Jgone\uFFFD\n"},
  };
  for (const auto& [path, text, wanted] : kCases) {
    EXPECT_EQ(Record({}, [&](EventSink& log) { log.Message(path, text); }).Text(), wanted);
    EXPECT_EQ(Record({}, [&](EventSink& log) { log.Status(path, {std::string(text)}); }).Text(), wanted);
  }
}

TEST(TextLog, NamesAndTitlesStayOnOneLine) {
  const ActionPlace odd{"/1", "X", "two\nlines\x07", true};
  EXPECT_EQ(Record({.verbosity = Verbosity::Verbose},
                   [&odd](EventSink& log) {
                     log.BuildStart("a\nb");
                     log.ActionStart(odd);
                     log.Variable("/1", "A\x1b", std::string("x\ny"));
                     log.ActionEnd(odd, {ActionResult::Failure, 0});
                   })
                .Text(),
            "Building a b\n\ntwo lines\\x07\n  A\\x1B = x\n    y\n  failed after 0.00 s: two lines\\x07\n");
}

TEST(TextLog, SumsUp) {
  const struct {
    BuildSummary summary;
    std::string_view wanted;
  } kCases[] = {
      {{ActionResult::Success, 0.03, 12, 0}, "\nSucceeded: 12 actions in 0.03 s\n"},
      {{ActionResult::Success, 0.03, 12, 0, 3, 2},
       "\nSucceeded, 3 errors logged by 2 steps: 12 actions in 0.03 s\n"},
      {{ActionResult::Failure, 185, 12, 2}, "\nFailed: 12 actions, 2 failures, 3 min 05 s\n"},
      {{ActionResult::Failure, 185, 12, 3, 0, 0, 1},
       "\nFailed: 12 actions, 3 failures (1 ignored), 3 min 05 s\n"},
      {{ActionResult::Failure, 0, 0, 0}, "\nFailed: 0 actions in 0.00 s\n"},
      {{ActionResult::Stopped, 12.4, 1, 0}, "\nStopped: 1 action in 12.4 s\n"},
  };
  for (const auto& [summary, wanted] : kCases) {
    EXPECT_EQ(Record({}, [&](EventSink& log) { log.BuildEnd(summary); }).Text(), wanted);
  }
}

TEST(TextLog, AFailedBuildClosesWithTheStepsToBlame) {
  const std::string text = Record({}, [](EventSink& log) {
                             const auto end = [&log](const ActionPlace& place, bool ignored) {
                               log.ActionEnd(place, {ActionResult::Failure, 0, 1, ignored});
                             };
                             log.ActionStart(kGroup);
                             log.ActionStart(kDelete);
                             log.Error("/1/1", "forgiven");
                             end(kDelete, true);
                             log.ActionStart(kDelete);
                             log.Error("/1/1", "passed over by the group");
                             end(kDelete, false);
                             end(kGroup, true);
                             log.ActionStart(kGroup);
                             log.ActionStart(kDelete);
                             log.Status("/1/1", {"Deleting", " --> Denied", " --> again", "0 Files"});
                             end(kDelete, false);
                             ActionPlace create = kCreate;
                             create.passes = "2.1";
                             log.ActionStart(create);
                             log.Message("/1/2", "only\n this line ");
                             end(create, false);
                             end(kGroup, false);
                             log.BuildEnd({ActionResult::Failure, 1, 3, 3});
                           }).Text();
  EXPECT_TRUE(
      text.ends_with("\nFailed steps:\n"
                     "  /1/1 Delete File(s): *.obj: Denied\n"
                     "  /1/2 Create out (pass 2.1): this line\n"
                     "Failed: 3 actions, 3 failures, 1.00 s\n"))
      << text;
}

TEST(TextLog, WritesOncePerEventThatShows) {
  const MemoryStream stream = Record({}, [](EventSink& log) {
    log.ActionStart(kCreate);
    log.Status("/1/2", {"a", "b"});
    log.Status("/1/2", {});
    log.Progress("/1/2", "working", 10);
    log.Variable("/1/2", "A", true);
    log.ActionEnd(kCreate, {ActionResult::Success, 0});
  });
  EXPECT_THAT(stream.writes, ElementsAre("  Create out\n", "    a\n    b\n"));
  EXPECT_EQ(stream.calls, 2);
}

TEST(TextLog, TheProgressLineGivesWayToEveryOtherLine) {
  const MemoryStream stream = Record({.liveProgress = true, .width = 16}, [](EventSink& log) {
    log.ActionStart(kCreate);
    log.Progress("/1/2", "a moment", 5);
    log.At({0.51 / 86400});
    log.Progress("/1/2", "a moment", 10);
    log.Progress("/1/2", "a moment", 20);
    log.Message("/1/2", "a");
    log.At({0.62 / 86400});
    log.Progress("/1/2", "next", 10);
    log.ActionEnd(kCreate, {ActionResult::Success, 0});
  });
  EXPECT_THAT(stream.writes, ElementsAre("  Create out\n", "\ra moment    10%", "\r               \r    a\n",
                                         "\r[2] next    10%", "\r               \r"));
}

}  // namespace
