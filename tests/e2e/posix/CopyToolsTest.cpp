#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Vekrun.h"

namespace {

using testing::Contains;
using testing::ElementsAre;

/// With nothing set the copy steps find the tools beside vekrun.
struct CopyTools : testing::Test {
  TempFolder folder;
  ProgramSetup setup{.environment = {DataFolderIn(folder.Path())}};

  VekrunResult Exec(const std::string& type, StringList properties) const {
    properties.insert(properties.begin(), {"exec", type});
    return RunJsonl(properties, setup);
  }
  VekrunResult Robocopy(const std::string& type, const std::string& from, const std::string& to) const {
    return Exec(type, {"SourceDir=" + folder.Path(from), "DestDir=" + folder.Path(to), "Retries=0"});
  }
};

TEST_F(CopyTools, RobocopyStepsRunAndTellWhatCameOfIt) {
  folder.Write("a/f.txt", "1");
  folder.Write("a/sub/g.txt", "2");
  folder.Write("b/extra.txt");
  const struct {
    const char *type, *from, *to;
    int exitCode;
    const char* message;
  } cases[] = {
      {"ROBOCOPYICON", "a", "c", 0, "Done - Copy successful"},
      {"ROBOCOPYICON", "a", "c", 0, "Done - No changes"},
      {"ROBOCOPYMIRROR", "a", "c", 0, "Done - No changes"},
      {"ROBOCOPYMIRROR", "c", "missing/d", 0, "Done - Copy successful"},
      {"ROBOCOPYICON", "a", "a/f.txt", 1, "Done - Fatal Error"},
      {"ROBOCOPYICON", "none", "c", 1, "Done - Fatal Error"},
  };
  for (const auto& c : cases) {
    const VekrunResult result = Robocopy(c.type, c.from, c.to);
    EXPECT_EQ(result.exitCode, c.exitCode) << c.message;
    EXPECT_THAT(result.Short(), Contains(std::string("message /1 ") + c.message));
  }
  EXPECT_EQ(Robocopy("ROBOCOPYMIRROR", "a", "b").exitCode, 0);
  EXPECT_THAT(folder.Names("b"), ElementsAre("f.txt", "sub"));
  EXPECT_EQ(Robocopy("ROBOCOPYMOVE", "c", "moved").exitCode, 0);
  EXPECT_FALSE(folder.Exists("c/f.txt"));
  EXPECT_EQ(folder.Read("moved/f.txt"), "1");
}

TEST_F(CopyTools, TheRunsDrivesAndItsProtectionHoldForTheTools) {
  folder.Write("a/f.txt", "1");
  folder.Write("p/build.vekproj", ProjectOf(ActionOf("ROBOCOPYMIRROR",
                                                     "<SourceDir>Q:\\</SourceDir>"
                                                     "<DestDir>%PROJECTDIR%</DestDir>")));
  const StringList run = {"run", folder.Path("p/build.vekproj"), "--drive", "Q=" + folder.Path("a")};
  const VekrunResult refused = RunJsonl(run, setup);
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_THAT(refused.Short(), Contains("message /1 Refused : " + folder.Path("p") +
                                        " is protected (--no-preserve-root allows it)"));
  EXPECT_THAT(folder.Names("p"), ElementsAre("build.vekproj"));
  StringList allowed = run;
  allowed.push_back("--no-preserve-root");
  EXPECT_EQ(RunJsonl(allowed, setup).exitCode, 0);
  EXPECT_THAT(folder.Names("p"), ElementsAre("f.txt"));
}

TEST_F(CopyTools, ListsOfNamesReachTheTools) {
  folder.Write("src/keep me.txt", "1");
  folder.Write("src/drop me.log", "2");
  folder.Write("src/obj dir/x.txt", "3");
  folder.Write("job.rcj", "/S  :: with folders\n/XD\n\tobj dir\n/XF\n\tdrop me.log\n");
  EXPECT_EQ(Exec("ROBOCOPYICON", {"SourceDir=" + folder.Path("src"), "DestDir=" + folder.Path("a"),
                                  "ExcludeFiles+=*.log", "ExcludeFiles+=none", "ExcludeDirs+=obj dir"})
                .exitCode,
            0);
  EXPECT_EQ(Exec("ROBOCOPYJOB", {"SourceDir=" + folder.Path("src"), "DestDir=" + folder.Path("b"),
                                 "JobFiles+=" + folder.Path("job")})
                .exitCode,
            0);
  EXPECT_EQ(Exec("HXCOPY", {"Source=" + folder.Path("src"), "Destination=" + folder.Path("c"),
                            "XCopyMode=mdRecursive", "ExcludeFiles+=.log", "ExcludeFiles+=\\obj dir\\"})
                .exitCode,
            0);
  for (const char* target : {"a", "b", "c"}) EXPECT_THAT(folder.Names(target), ElementsAre("keep me.txt"));
}

}  // namespace
