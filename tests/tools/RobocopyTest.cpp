#include "ToolTest.h"

namespace {

using RobocopyTest = ToolTest;

constexpr const char* kNoon = "2020-05-04T12:00:00";

/// One file of each class, named for it.
void MakeClasses(const ToolTest& test) {
  test.disk.Write({"a/new=1", "a/same=1", "a/newer=1", "a/older=1", "a/changed=12", "a/tweaked=1", "a/kind=1",
                   "b/same=1", "b/newer=2", "b/older=2", "b/changed=1", "b/tweaked=1", "b/kind/x=1",
                   "b/extra=1"});
  for (const char* name :
       {"a/same", "b/same", "a/newer", "a/older", "a/changed", "b/changed", "a/tweaked", "b/tweaked"}) {
    test.SetTime(name, kNoon);
  }
  test.SetTime("b/newer", "2020-05-04T11:59:59");
  test.SetTime("b/older", "2020-05-04T12:00:01");
  test.SetAttributes("b/tweaked", FileAttribute::ReadOnly);
}

TEST_F(RobocopyTest, ClassesAndTheSwitchesThatTurnThemOnAndOff) {
  const std::string all = "extra changed kind new newer older";
  const struct {
    std::string switches, listed;
    int exitCode;
  } cases[] = {
      {"", all, 7},
      {"/XC", "extra kind new newer older", 7},
      {"/XN", "extra changed kind new older", 7},
      {"/XO", "extra changed kind new newer", 7},
      {"/XL", "extra changed kind newer older", 7},
      {"/XX", "changed kind new newer older", 5},
      {"/IS", "extra changed kind new newer older same", 7},
      {"/IT", "extra changed kind new newer older tweaked", 7},
      {"/XC /XN /XO /XL", "extra kind", 6},
      {"/XC /XN /XO /XL /XX /XF kind", "", 0},
      {"/FFT", "extra changed kind new", 7},
      {"/MAX:1", "extra kind new newer older", 7},
      {"/MIN:2", "extra changed", 3},
      {"/XF *e*", "kind", 4},
      {"n*", "new newer", 1},
      {"/X n*", "extra new newer", 1},
      {"/MAXAGE:20200505", "extra kind new", 7},
      {"/MT:3", all, 7},
  };
  for (const auto& c : cases) {
    folder.MakeFolder("b/kind");
    ASSERT_TRUE(platform.folders->Empty(folder.Path(), {.deleteReadOnly = true, .shownAs = "/"}));
    MakeClasses(*this);
    const std::string quiet = "/NC /NDL " + c.switches;
    const ProgramResult plan = Robocopy("/L " + quiet);
    EXPECT_EQ(JoinLines(Squeezed(plan.out), " "), c.listed) << c.switches;
    EXPECT_EQ(folder.Read("b/newer"), "2") << c.switches;
    // The plan is what is then done.
    const ProgramResult run = Robocopy(quiet);
    EXPECT_EQ(run.out, plan.out) << c.switches;
    EXPECT_EQ(run.exitCode, c.exitCode) << c.switches;
    EXPECT_EQ(plan.exitCode, c.exitCode) << c.switches;
    const auto isListed = [&](const std::string& name) {
      return (" " + c.listed + " ").find(" " + name + " ") != std::string::npos;
    };
    EXPECT_EQ(folder.Read("b/newer"), isListed("newer") ? "1" : "2") << c.switches;
    EXPECT_EQ(folder.Exists("b/new"), isListed("new")) << c.switches;
  }
}

TEST_F(RobocopyTest, WhatIsSkippedIsShownWithItsReason) {
  MakeClasses(*this);
  folder.Write("a/hidden", "1");
  SetAttributes("a/hidden", FileAttribute::Hidden);
  const ProgramResult result = Robocopy("/V /L /XL /MAX:1 /XF old* /XA:H");
  EXPECT_EQ(Squeezed(result.out), (StringList{folder.Path("a/"), "*EXTRA File extra", "large changed",
                                              "attrib hidden", "*Mismatch kind", "lonely new", "Newer newer",
                                              "named older", "same same", "tweaked tweaked"}));
}

TEST_F(RobocopyTest, AgesAtTheEdgesOfADay) {
  const struct {
    const char* name;
    const char* written;
  } files[] = {{"before", "2020-05-03T23:59:59"},
               {"midnight", "2020-05-04T00:00:00"},
               {"after", "2020-05-04T00:00:01"}};
  for (const auto& file : files) {
    folder.Write(std::string("a/") + file.name);
    SetTime(std::string("a/") + file.name, file.written);
  }
  folder.Write("a/now");
  EXPECT_EQ(Squeezed(Robocopy("/L /NC /NDL /MAXAGE:20200504").out), (StringList{"after", "midnight", "now"}));
  EXPECT_EQ(Squeezed(Robocopy("/L /NC /NDL /MINAGE:20200504").out), (StringList{"before", "midnight"}));
  const double hour = 1.0 / 24;
  for (const auto& [switches, days, isListed] :
       {std::tuple("/MAXAGE:2", 2 - hour, true), std::tuple("/MAXAGE:2", 2 + hour, false),
        std::tuple("/MINAGE:2", 2 - hour, false), std::tuple("/MINAGE:2", 2 + hour, true),
        std::tuple("/MAXAGE:0", hour, false), std::tuple("/MINAGE:0", hour, true)}) {
    const TDateTime then{platform.clock->LocalNow().days - days};
    platform.entries->ChangeLastWrite(folder.Path("a/now"), [&](TDateTime) { return then; });
    const ProgramResult result = Robocopy(std::string("/L /NC /NDL ") + switches + " now");
    EXPECT_EQ(!Squeezed(result.out).empty(), isListed) << switches << ' ' << days;
  }
}

TEST_F(RobocopyTest, AMirrorTakesAwayWhatIsNotSelectedOtherwise) {
  disk.Write({"a/f=1", "a/sub/g=2", "a/empty/", "b/f=old", "b/keep.log=k", "!b/locked=r", "b/gone/deep/x=1",
              "b/cache/c=1", "b/mixed/keep.log=1", "b/mixed/go=1", "outside/o=1"});
  MakeLink(folder.Path("outside"), folder.Path("b/link"));
  MakeLink(folder.Path("outside"), folder.Path("b/gone/link"));
  EXPECT_EQ(Robocopy("/MIR /XF *.log /XD cache").exitCode, 3);
  EXPECT_EQ(disk.Read("b/"), (StringList{"b/cache/c=1", "b/empty/", "b/f=1", "b/keep.log=k",
                                         "b/mixed/keep.log=1", "b/sub/g=2"}));
  EXPECT_EQ(folder.Read("outside/o"), "1");
  EXPECT_EQ(Robocopy("/MIR").exitCode, 2);
  EXPECT_EQ(disk.Read("b/"), (StringList{"b/empty/", "b/f=1", "b/sub/g=2"}));
  EXPECT_EQ(Robocopy("/MIR /MT:4").exitCode, 0);
}

TEST_F(RobocopyTest, WhatALinkToAFolderLeadsToStays) {
  for (const auto& [linked, switches] : {std::pair("b/sub", "/MIR"),
                                         {"b/sub", "/MIR /MT:2"},
                                         {"a/sub/l", "/E /MOVE"},
                                         {"a/sub/l", "/S /MOV"}}) {
    disk.Write({"a/sub/x=1", "b/", "outside/o=1", "outside/deep/p=2"});
    MakeLink(folder.Path("outside"), folder.Path(linked));
    EXPECT_EQ(Robocopy(switches).exitCode, 1) << switches;
    EXPECT_EQ(disk.Read("outside/"), (StringList{"outside/deep/p=2", "outside/o=1"})) << switches;
    EXPECT_EQ(folder.Read("b/sub/x"), "1") << switches;
    ASSERT_TRUE(platform.folders->Empty(folder.Path(), {.shownAs = "/"}));
  }
}

TEST_F(RobocopyTest, AMirrorKeepsItsOwnFiles) {
  disk.Write({"a/", "b/logs/old=1", "b/job.rcj=/MIR"});
  MakeLink(folder.Path("b"), folder.Path("way"));
  EXPECT_EQ(Run("robocopy", {"a", "way", "/JOB:b/job", "/LOG:b/logs/run.log"}).exitCode, 2);
  EXPECT_EQ(folder.Names("b"), (StringList{"job.rcj", "logs"}));
  EXPECT_EQ(folder.Names("b/logs"), (StringList{"run.log"}));
}

TEST_F(RobocopyTest, WhatMustNotBePurgedIsRefused) {
  disk.Write({"home/user/f=1", "a/x=1", "outer/a/x=1", "outer/y=1"});
  setup.environment = {"HOME=" + folder.Path("home/user")};
  const auto mirror = [&](const std::string& from, const std::string& to) {
    return Run("robocopy", {from, to, "/MIR", "/NJH", "/R:0"});
  };
  const ProgramResult refused = mirror("a", "home");
  EXPECT_EQ(refused.exitCode, 16);
  EXPECT_EQ(refused.out,
            "Refused : " + folder.Path("home") + " is protected (--no-preserve-root allows it)\n");
  EXPECT_EQ(mirror("outer/a", "outer").exitCode, 16);
  MakeLink(folder.Path("home"), folder.Path("way"));
  setup.environment.push_back("VEKRUN_PROJECTS=" + folder.Path("a/x") + '\n');
  const std::vector<StringList> others = {{"home", "b", "/E", "/MOVE"},
                                          {"home", "b", "/S", "/MOV"},
                                          {"a", "way", "/PURGE"},
                                          {"outer", "a", "/MIR"}};
  for (const StringList& c : others) EXPECT_EQ(Run("robocopy", c).exitCode, 16) << JoinLines(c, " ");
  ASSERT_TRUE(platform.entries->Delete(folder.Path("way")));
  EXPECT_EQ(disk.Read(), (StringList{"a/x=1", "home/user/f=1", "outer/a/x=1", "outer/y=1"}));
  EXPECT_EQ(Run("robocopy", {"a", "home", "/MIR", "--no-preserve-root"}).exitCode, 3);
  EXPECT_EQ(folder.Names("home"), (StringList{"x"}));
}

TEST_F(RobocopyTest, MovesAndWhatStays) {
  disk.Write({"a/f=1", "a/sub/g=2", "a/stay.txt=3", "b/f=old"});
  EXPECT_EQ(Robocopy("/E /MOV /XF *.txt").exitCode, 1);
  EXPECT_EQ(disk.Read(), (StringList{"a/stay.txt=3", "a/sub/", "b/f=1", "b/sub/g=2"}));
  EXPECT_EQ(Robocopy("/E /MOVE").exitCode, 3);
  EXPECT_EQ(disk.Read(), (StringList{"b/f=1", "b/stay.txt=3", "b/sub/g=2"}));
}

TEST_F(RobocopyTest, AttributesAreAddedTakenAndLookedAt) {
  disk.Write({"a/plain=1", "!a/locked=2", "!b/plain=old"});
  EXPECT_EQ(Robocopy("/A+:R /A-:H").exitCode, 1);
  EXPECT_EQ(disk.Read("b/"), (StringList{"!b/locked=2", "!b/plain=1"}));
  EXPECT_EQ(Robocopy("/IS /IT /COPY:DT /A-:R").exitCode, 1);
  EXPECT_EQ(disk.Read("b/"), (StringList{"b/locked=2", "b/plain=1"}));
  EXPECT_EQ(Squeezed(Robocopy("/IA:R /IS /IT /L /NC /NDL").out), (StringList{"locked"}));
  EXPECT_EQ(Squeezed(Robocopy("/IA:TE /IS /NDL").out),
            (StringList{"NOTE : /IA:TE : files have the attributes R, A, S and H only"}));
  if (!StoresAttributes(folder.Path())) return;
  SetAttributes("a/plain", FileAttribute::Archive);
  EXPECT_EQ(Squeezed(Robocopy("/M /IT /NC /NDL").out), (StringList{"plain"}));
  EXPECT_EQ(Robocopy("/M /IT").exitCode, 0);
}

TEST_F(RobocopyTest, FailuresAreTriedAgainToldAndCounted) {
  disk.Write({"a/f=1", "a/g=2"});
  const ExclusiveOpen held(folder.Path("a/f"));
  const ProgramResult result = Run("robocopy", {"a", "b", "/R:1", "/W:0", "/NJH", "/NDL", "/NFL", "/NJS"});
  EXPECT_EQ(result.exitCode, 9);
  const std::string error = "ERROR 32 (0x00000020) Copying File " + folder.Path("a/f") + '\n' +
                            SystemText(Win32Error::SharingViolation) + '\n';
  const size_t first = result.out.find(error);
  ASSERT_NE(first, std::string::npos) << result.out;
  EXPECT_NE(result.out.find("Waiting 0 seconds... Retrying...\n", first), std::string::npos);
  EXPECT_NE(result.out.find(error, first + 1), std::string::npos);
  EXPECT_TRUE(result.out.ends_with("ERROR: RETRY LIMIT EXCEEDED.\n")) << result.out;
  EXPECT_EQ(folder.Names("b"), (StringList{"g"}));

  EXPECT_EQ(Run("robocopy", {"missing", "b"}).exitCode, 16);
  EXPECT_EQ(Run("robocopy", {"a/f", "b"}).exitCode, 16);
  EXPECT_EQ(Run("robocopy", {"a", "b", "/NONSENSE"}).exitCode, 16);
  EXPECT_EQ(Run("robocopy", {"a", "a/g", "/R:0"}).exitCode, 16);
}

TEST_F(RobocopyTest, AnInterruptedWaitEndsAtOnce) {
  folder.Write("a/f");
  const ExclusiveOpen held(folder.Path("a/f"));
  setup.interruptAt = "Waiting 30 seconds";
  EXPECT_EQ(Run("robocopy", {"a", "b"}).exitCode, 130);
}

TEST_F(RobocopyTest, NamesAreTakenAsTheyAre) {
  const std::string longest(255, 'n');
  disk.Write({"a/Name=1", "a/name=2", "a/Sub/x=3", "a/sub/x=4", "a/\xFFraw=5", "a/" + longest + "=6",
              "a/st*r=7", "a/back\\slash=8"});
  for (const char* switches : {"/MIR", "/MIR /MT:2"}) {
    Robocopy(switches);
    StringList wanted = disk.Read("a/"), found = disk.Read("b/");
    for (std::string& line : found) line[0] = 'a';
    EXPECT_EQ(found, wanted) << switches;
    EXPECT_EQ(Robocopy(switches).exitCode, 0) << switches;
    ASSERT_TRUE(platform.folders->Empty(folder.Path("b"), {.shownAs = "/"}));
  }
}

TEST_F(RobocopyTest, TreesMayBeDeeperThanThePathsThatTheSystemTakes) {
  std::string below;
  for (int level = 0; level < 2200; ++level) {
    ASSERT_TRUE(platform.folders->CreateWithParents(folder.Path("a" + below)));
    below += "/d";
  }
  folder.MakeFolder("empty");
  EXPECT_EQ(Robocopy("/MIR /NDL").exitCode, 1);
  EXPECT_TRUE(platform.folders->Exists(folder.Path("b" + below.substr(2))));
  for (const char* tree : {"a", "b"}) {
    EXPECT_EQ(Run("robocopy", {"empty", tree, "/MIR"}).exitCode, 2);
    EXPECT_TRUE(folder.Names(tree).empty());
  }
}

TEST_F(RobocopyTest, TheDestinationMayLieInTheSource) {
  disk.Write({"a/f=1", "a/sub/g=2"});
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Run("robocopy", {"a", "a/copy", "/E"}).exitCode, i == 0 ? 1 : 0);
  EXPECT_EQ(disk.Read("a/copy/"), (StringList{"a/copy/f=1", "a/copy/sub/g=2"}));
  MakeLink("..", folder.Path("a/sub/up"));
  EXPECT_EQ(Run("robocopy", {"a", "b", "/E", "/XD", "copy"}).exitCode, 1);
  EXPECT_EQ(disk.Read("b/"), (StringList{"b/f=1", "b/sub/g=2"}));
  EXPECT_EQ(Run("robocopy", {"a/sub", ".", "/E"}).exitCode & 16, 0);
}

TEST_F(RobocopyTest, JobFilesAndLogs) {
  disk.Write({"a/f.txt=1", "a/g.log=2", "a/my dir/h.txt=3", "a/sub/i.txt=4"});
  EXPECT_EQ(Run("robocopy", {"a", "b", "*.txt", "/S", "/XD", "my dir", "/SAVE:job", "/QUIT"}).exitCode, 0);
  EXPECT_FALSE(folder.Exists("b"));
  EXPECT_EQ(Run("robocopy", {"/JOB:job", "/LOG:run.log", "/NJH"}).exitCode, 1);
  EXPECT_EQ(disk.Read("b/"), (StringList{"b/f.txt=1", "b/sub/i.txt=4"}));
  EXPECT_EQ(Squeezed(folder.Read("run.log")).front(), "New Dir 1 " + folder.Path("a/"));
  EXPECT_EQ(Run("robocopy", {"a", "c", "-job:JOB.RCJ", "-log+:run.log", "/TEE"}).exitCode, 1);
  EXPECT_EQ(disk.Read("c/"), (StringList{"c/f.txt=1", "c/sub/i.txt=4"}));
  EXPECT_NE(folder.Read("run.log").find("Dest : " + folder.Path("c/")), std::string::npos);
}

}  // namespace
