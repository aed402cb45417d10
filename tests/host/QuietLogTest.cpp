#include "gtest/gtest.h"

#include "host/LogTesting.h"
#include "host/log/QuietLog.h"

namespace {

class QuietLogTest : public testing::Test {
 protected:
  MemoryStream stream;
  LogOutput output{stream, {}};
  std::unique_ptr<EventSink> log = CreateQuietLog(output, false);
};

TEST_F(QuietLogTest, ShowsWhatFailedAndTheSummary) {
  PlaySmallBuild(*log);
  EXPECT_EQ(stream.Text(),
            "Clean\n"
            "  Delete File(s): *.obj\n"
            "    Deleting files : *.obj\n"
            "     --> Access is denied.\n"
            "    0 Files Deleted.\n"
            "    failed, ignored\n"
            "Succeeded: 2 actions, 1 failure ignored, 2.00 s\n");
}

TEST_F(QuietLogTest, ATitleIsShownOnceForAllThatFailedBelowIt) {
  log->ActionStart(kGroup);
  log->Message("/1", "of the group");
  for (const ActionPlace& place : {kDelete, kCreate, kDelete}) {
    log->ActionStart(place);
    log->Message(place.path, "why");
    log->ActionEnd(place, {place.path == "/1/2" ? ActionResult::Success : ActionResult::Failure});
  }
  log->Error("/1", "no more");
  log->ActionEnd(kGroup, {ActionResult::Failure, 0});
  EXPECT_EQ(stream.Text(),
            "Clean\n"
            "  Delete File(s): *.obj\n"
            "    why\n"
            "  Delete File(s): *.obj\n"
            "    why\n"
            "  error: no more\n");
}

TEST_F(QuietLogTest, ErrorsThatBelongToNoActionAreNeverHeldBack) {
  log->Error("", "no such drive");
  log->ActionStart(kGroup);
  log->Error("/7", "astray");
  EXPECT_EQ(stream.Text(), "error: no such drive\n  error: astray\n");
}

TEST_F(QuietLogTest, KeepsTheLastLinesOfAnEndlessTalker) {
  log->ActionStart(kDelete);
  for (int i = 0; i < 20'000; ++i) log->Message("/1/1", "line " + std::to_string(i));
  log->ActionEnd(kDelete, {ActionResult::Failure, 0});
  const std::string text = stream.Text();
  EXPECT_LT(text.size(), 140'000u);
  EXPECT_TRUE(text.starts_with("  Delete File(s): *.obj\n    ...\n    line ")) << text.substr(0, 80);
  EXPECT_TRUE(text.ends_with("\n    line 19999\n"));
}

}  // namespace
