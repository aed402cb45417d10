#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/OsFixture.h"
#include "support/Vekrun.h"

namespace {

struct PosixRun : testing::Test {
  TempFolder folder;
};

TEST_F(PosixRun, ALogThatCannotBeWrittenEndsTheBuild) {
  folder.Write("keep.tmp", "x");
  folder.Write("p.vekproj", ProjectOf(ActionOf("HDELETE_FILE", "<FileSpec>%PROJECTDIR%\\*.tmp</FileSpec>")));
  const auto full = RunVekrun({"run", folder.Path("p.vekproj"), "--log", "/dev/full"});
  EXPECT_EQ(full.exitCode, 1);
  EXPECT_EQ(full.err, "vekrun: cannot write the log /dev/full: There is not enough space on the disk.\n");
  EXPECT_EQ(folder.Read("keep.tmp"), "x");
}

TEST_F(PosixRun, ReportsAreWholeAfterAKill) {
  folder.Write("p.vekproj", ProjectOf(ActionOf("ACTIONGROUP", "<Description>before</Description>") +
                                      ActionOf("HRUNDOS", "<Command>kill -9 $PPID; sleep 5</Command>")));
  const auto killed =
      RunVekrun({"run", folder.Path("p.vekproj"), "--report", "jsonl=" + folder.Path("r.jsonl"), "--report",
                 "junit=" + folder.Path("r.xml")});
  EXPECT_NE(killed.exitCode, 0);
  StringList events;
  for (const std::string& line : SplitLines(folder.Read("r.jsonl"))) {
    events.push_back(nlohmann::json::parse(line).at("event"));
  }
  events.resize(std::min<size_t>(events.size(), 4));  // the program's own start is told as it runs
  EXPECT_THAT(events, testing::ElementsAre("build-start", "action-start", "action-end", "action-start"));
  EXPECT_THAT(folder.Read("r.xml"), testing::AllOf(testing::HasSubstr("tests=\"1\""),
                                                   testing::HasSubstr("<testcase name=\"before\""),
                                                   testing::EndsWith("</testsuites>\n")));
}

TEST_F(PosixRun, AReaderThatHasReadEnoughIsNoFailure) {
  const std::string vekrun = VEK_BIN_DIR "/vekrun";
  const auto result =
      RunJsonl({"exec", "HRUNDOS", "Command=" + vekrun + " describe HCOPYFILES --json | true"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.Of("message"), testing::IsEmpty());
}

TEST_F(PosixRun, DrivesAreMappedByOptionAndByTheOptionStore) {
  folder.Write("d/a.tmp", "x");
  folder.Write("d/b.tmp", "x");
  folder.Write("vekrun/options.json", R"({"Drives": {"Q": ")" + folder.Path("d") + "\"}}");
  const ProgramSetup withStore{.environment = {DataFolderIn(folder.Path())}};
  EXPECT_EQ(
      RunVekrun({"exec", "HDELETE_FILE", "FileSpec=X:\\A.TMP", "--drive", "x=" + folder.Path("d")}).exitCode,
      0);
  EXPECT_EQ(RunVekrun({"exec", "HDELETE_FILE", "FileSpec=q:\\*.tmp"}, withStore).exitCode, 0);
  EXPECT_EQ(RunVekrun({"exec", "HDELETE_FILE", "FileSpec=Q:\\*.tmp"}).exitCode, 1);
  EXPECT_THAT(folder.Names("d"), testing::IsEmpty());
}

TEST_F(PosixRun, XCopyStartsInTheFolderOfItsSource) {
  folder.Write("tools/xcopy.exe", "#!/bin/sh\nprintf '%s|%s' \"$PWD\" \"$*\"\n");
  SetMode(folder.Path("tools/xcopy.exe"), 0755);
  folder.MakeFolder("a b");
  const auto result = RunJsonl({"exec", "HXCOPY", "Source=" + folder.Path("a b/*.txt"), "Destination=C:\\b",
                                "--option", "System.Directory=" + folder.Path("tools")});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.Short(), testing::Contains("message /1 " + folder.Path("a b") + "|" +
                                                folder.Path("a b/*.txt") + " C:\\b\\ /Y /I"));
}

}  // namespace
