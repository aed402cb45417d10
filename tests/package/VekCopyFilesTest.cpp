#include "fileops/VekCopyMove.h"
#include "fileops/VekPercentage.h"
#include "package/CopyMoveTesting.h"
#include "platform/Environment.h"
#include "platform/FileAttributes.h"
#include "support/OsFixture.h"
#include "support/WineLimits.h"

using testing::ElementsAre;

namespace {

const std::string kFailed = "Failed to copy File : ";

struct CopyFiles : CopyMoveRuns<TCopyFilesAction>, testing::Test {};

// clang-format off
const CopyMoveCase kCopies[] = {
    {"IntoAFolder", "", "in/a.txt=A in/b.TXT=B in/c.doc=C in/sub/d.txt=D out/", "%D%\\in\\*.txt", "%D%\\out\\", true,
     "2 Files Copied.", "in/a.txt=A in/b.TXT=B in/c.doc=C in/sub/d.txt=D out/a.txt=A out/b.TXT=B", 2},
    {"UnderANewName", "", "a.txt=A", "%D%\\A.TXT", "%D%\\b.txt", true, "1 Files Copied.", "a.txt=A b.txt=A", 1},
    {"ReplacesAFile", "", "a.txt=A b.txt=old", "%D%\\a.txt", "%D%\\b.txt", true, "1 Files Copied.", "a.txt=A b.txt=A", 1},
    {"MissingFolderStopsAtTheFirst", "", "in/a.txt=A in/b.txt=B", "%D%\\in\\*.txt", "%D%\\out", false,
     "FAILED %D%\\in\\a.txt -> %D%\\out\\a.txt|Win32 Error : {3}|0 Files Copied.", "in/a.txt=A in/b.txt=B", 0},
    {"ForceMakesTheFolder", "Force", "in/a.txt=A in/b.txt=B", "%D%\\in\\*.txt", "%D%\\x\\out", true,
     "2 Files Copied.", "in/a.txt=A in/b.txt=B x/out/a.txt=A x/out/b.txt=B", 2},
    {"ForceMakesTheParentOfAFile", "Force", "a.txt=A", "%D%\\a.txt", "%D%\\x\\out", true, "1 Files Copied.", "a.txt=A x/out=A", 1},
    {"TheFolderIsAFile", "Force", "in/a.txt=A out=file", "%D%\\in\\*.txt", "%D%\\out", false,
     "FAILED %D%\\in\\a.txt -> %D%\\out\\a.txt|Win32 Error : {3}|0 Files Copied.", "in/a.txt=A out=file", 0},
    {"TheSecondOfThreeExists", "FailIfExists", "in/a.txt=A in/b.txt=B in/c.txt=C out/b.txt=old", "%D%\\in\\*.txt", "%D%\\out", false,
     "FAILED %D%\\in\\b.txt -> %D%\\out\\b.txt|File Already Exists!|1 Files Copied.", "in/a.txt=A in/b.txt=B in/c.txt=C out/a.txt=A out/b.txt=old", 1},
    {"ReadOnlyTarget", "", "a.txt=A !b.txt=old", "%D%\\a.txt", "%D%\\b.txt", false,
     "FAILED %D%\\a.txt -> %D%\\b.txt|File Already Exists and is marked as Read Only|0 Files Copied.", "a.txt=A !b.txt=old", 0},
    {"ExistsGoesBeforeReadOnly", "FailIfExists OverwriteReadOnly", "a.txt=A !b.txt=old", "%D%\\a.txt", "%D%\\b.txt", false,
     "FAILED %D%\\a.txt -> %D%\\b.txt|File Already Exists!|0 Files Copied.", "a.txt=A !b.txt=old", 0},
    {"OverwritesReadOnly", "OverwriteReadOnly", "!a.txt=A !b.txt=old", "%D%\\a.txt", "%D%\\b.txt", true, "1 Files Copied.", "!a.txt=A !b.txt=A", 1},
    {"ClearsTheAttributes", "OverwriteReadOnly ClearAttributes", "!a.txt=A !b.txt=old", "%D%\\a.txt", "%D%\\b.txt", true, "1 Files Copied.", "!a.txt=A b.txt=A", 1},
    {"OntoItself", "", "a.txt=A", "%D%\\*.txt", "%D%", false, "FAILED %D%\\a.txt -> %D%\\a.txt|Win32 Error : {32}|0 Files Copied.", "a.txt=A", 0},
    {"NoMatch", "", "out/", "%D%\\*.txt", "%D%\\out", true, "0 Files Copied.", "out/", 0},
    {"NoMatchWithFailIfZero", "FailIfZeroFiles", "a.txt/", "%D%\\a.txt", "%D%\\b.txt", false, "0 Files Copied.", "a.txt/", 0},
    {"RecursesAndMakesOnlyFoldersWithFiles", "Recurse Force", "in/a.txt=A in/one/b.txt=B in/two/c.doc=C in/two/deep/d.txt=D in/three/", "%D%\\in\\*.txt", "%D%\\out", true,
     "3 Files Copied.", "in/a.txt=A in/one/b.txt=B in/three/ in/two/c.doc=C in/two/deep/d.txt=D out/a.txt=A out/one/b.txt=B out/two/deep/d.txt=D", 3},
    {"AFailureInASubFolderEndsThatFolderOnly", "Recurse Force FailIfExists", "in/one/a=A in/one/b=B in/one/below/c=C in/two/d=D out/one/a=old", "%D%\\in\\*", "%D%\\out", true,
     "FAILED %D%\\in\\one\\a -> %D%\\out\\one\\a|File Already Exists!|1 Files Copied.", "in/one/a=A in/one/b=B in/one/below/c=C in/two/d=D out/one/a=old out/two/d=D", 1},
    {"AFailureAboveKeepsSubFoldersOut", "Recurse FailIfExists", "in/a=A in/one/b=B out/a=old out/one/", "%D%\\in\\*", "%D%\\out", false,
     "FAILED %D%\\in\\a -> %D%\\out\\a|File Already Exists!|0 Files Copied.", "in/a=A in/one/b=B out/a=old out/one/", 0},
    {"RecursesForANameToo", "Recurse Force", "in/a.txt=A in/one/a.txt=B in/one/b.txt=C", "%D%\\in\\a.txt", "%D%\\out", true,
     "2 Files Copied.", "in/a.txt=A in/one/a.txt=B in/one/b.txt=C out/a.txt=A out/one/a.txt=B", 2},
};

const std::string kCopying = "Copying files : %D%\\in\\* -> %D%\\out|";
const std::string kWithin = "FileSpec=%D%\\*|Target=%D%\\x\\out|Recurse=True|Force=True";
const std::string kSkipped = "Copying files : %D%\\* -> %D%\\x\\out|Skipped, because it is the target : %D%\\x\\out|2 Files Copied.";
const RunCase kOthers[] = {
    {"AFileThatAnotherProgramHolds", "FileSpec=%D%\\in\\*|Target=%D%\\out", "in/a=A ^out/a=old", false,
     kCopying + kFailed + "%D%\\in\\a -> %D%\\out\\a|Win32 Error : {32}|0 Files Copied.", "in/a=A out/a=old"},
    {"ASearchThatBreaksOff", "FileSpec=%D%\\in\\*|Target=%D%\\out|Recurse=True", "in/a=A out/", true,
     kCopying + "1 Files Copied.", "in/a=A out/a=A", "", "Cannot search %D%\\in\\: {31}", "search.Result * 31"},
    {"AFileThatVanishedStopsTheRun", "FileSpec=%D%\\in\\*|Target=%D%\\out", "in/a=A in/b=B in/c=C out/", false,
     kCopying + kFailed + "%D%\\in\\b -> %D%\\out\\b|Win32 Error : {2}|1 Files Copied.", "in/a=A in/b=B in/c=C out/a=A", "", "", "entries.Copy b 2"},
    {"ATargetWithinTheSource", kWithin, "a=A one/b=B", true, kSkipped, "a=A one/b=B x/out/a=A x/out/one/b=B"},
    {"ATargetWithinTheSourceAgain", kWithin, "a=A one/b=B x/out/a=A x/out/one/b=old", true, kSkipped, "a=A one/b=B x/out/a=A x/out/one/b=B"},
    {"NoSource", "FileSpec=|Target=out", "", false, "Error: No source file specified.", ""},
    {"ABlankSourceGoesFirst", "FileSpec= \t|Target=%NO_SUCH_VARIABLE%", "", false, "Error: No source file specified.", ""},
    {"NoTarget", "FileSpec=%D%\\a|Target= ", "", false, "Error: No target file specified.", ""},
    {"AnUnknownSource", "FileSpec=%X%|Target=out", "", false, "Unable to Copy files : |" + kUnknownX, ""},
    {"AnUnknownTarget", "FileSpec= %D%\\a |Target=%X%", "", false, "Unable to Copy files : %D%\\a|" + kUnknownX, ""},
};
// clang-format on

TEST(CopyFilesRuns, Others) { ExpectRuns<TCopyFilesAction>(kOthers); }

TEST(CopyFilesRuns, Table) {
  for (const CopyMoveCase& wanted : kCopies) {
    CopyMoveRuns<TCopyFilesAction>().Expect(wanted, "Copying", "Failed to copy File :");
  }
}

TEST_F(CopyFiles, LinksThatLeadBackEnd) {
  if (WineLimits::NoLinks()) GTEST_SKIP();
  disk.Write({"in/sub/a=A"});
  MakeLink(folder.Path("in"), folder.Path("in/sub/loop"));
  action->SetRecurse(true);
  action->Force = true;
  EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(Lines().back(), "1 Files Copied.");
  EXPECT_EQ(folder.Read("out/sub/a"), "A");
  EXPECT_FALSE(folder.Exists("out/sub/loop"));
}

TEST_F(CopyFiles, TakesHiddenAndSystemFilesButNoFoldersOfThatKind) {
  disk.Write({"in/h=H", "in/s=S", "in/.git/c=C"});
  Entries& entries = *GetPlatform().entries;
  ASSERT_TRUE(entries.SetAttributes(folder.Path("in/h"), FileAttribute::Hidden));
  ASSERT_TRUE(entries.SetAttributes(folder.Path("in/s"), FileAttribute::System));
  entries.SetAttributes(folder.Path("in/.git"), FileAttribute::Hidden);
  action->SetRecurse(true);
  action->Force = true;
  EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_THAT(folder.Names("out"), ElementsAre("h", "s"));
}

TEST_F(CopyFiles, ABareNameIsFoundHereAndTakenFromTheRoot) {
  disk.Write({"vektest-bare.txt=A", "out/"});
  Environment& environment = *GetPlatform().environment;
  const std::string before = environment.CurrentFolder();
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  EXPECT_FALSE(Perform("vektest-b*.txt", "%D%\\out"));
  ASSERT_TRUE(environment.SetCurrentFolder(before));
  EXPECT_EQ(Lines(), Wanted({"Copying files : vektest-b*.txt -> %D%\\out",
                             kFailed + environment.PathDelimiter("") +
                                 "vektest-bare.txt -> %D%\\out\\vektest-bare.txt",
                             "Win32 Error : {2}", "0 Files Copied."}));
}

TEST_F(CopyFiles, ANameTooLongForTheDiskFails) {
  disk.Write({"a.txt=A"});
  EXPECT_FALSE(Perform("%D%\\a.txt", "%D%\\" + std::string(300, 'x')));
  ASSERT_EQ(Lines().size(), 4u);
  EXPECT_THAT(Lines()[2], testing::StartsWith("Win32 Error : "));
  EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
}

TEST_F(CopyFiles, TheMessageIsSentWhenSomethingRaises) {
  disk.Write({"in/a=A", "in/b=B", "out/"});
  fault = [](const PlatformCall& call) -> std::optional<SysResult> {
    if (call.copy && NamePart(call.path) == "b") throw std::runtime_error("raised");
    return {};
  };
  EXPECT_FALSE(Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(Lines(), Wanted({"Copying files : %D%\\in\\* -> %D%\\out", "1 Files Copied."}));
  EXPECT_THAT(Errors(), ElementsAre(testing::HasSubstr("raised")));
}

TEST_F(CopyFiles, TerminationAbortsTheCopyAndEndsTheWalk) {
  disk.Write({"in/one/a=A", "in/one/below/b=B", "in/two/c=C"});
  SetProperties(*action, "Recurse=True|Force=True");
  fault = [this](const PlatformCall& call) -> std::optional<SysResult> {
    if (!call.copy) return {};
    EXPECT_FALSE(*call.copy->cancel);
    action->TerminateAction();
    EXPECT_TRUE(*call.copy->cancel);
    return SysResult::Failure(Win32Error::RequestAborted);
  };
  for (int run = 1; run <= 2; ++run) {  // each begins with the wish forgotten
    EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
    EXPECT_EQ(Lines(), Wanted({"Copying files : %D%\\in\\* -> %D%\\out",
                               kFailed + "%D%\\in\\one\\a -> %D%\\out\\one\\a", "Win32 Error : {1235}",
                               "0 Files Copied."}));
  }
  EXPECT_TRUE(action->CanTerminate());
}

TEST_F(CopyFiles, ProgressIsSentWhenItsPercentageChanges) {
  disk.Write({"in/a=A", "in/b=B", "out/"});
  fault = [](const PlatformCall& call) -> std::optional<SysResult> {
    if (!call.copy) return {};
    for (const uint64_t done : {0, 1, 499, 504, 1000}) call.copy->progress(done, 1000);
    return SysResult();
  };
  EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
  StringList wanted;
  for (const char* name : {"a", "b"}) {
    for (const char* percent : {"0", "49", "50", "100"}) {
      wanted.push_back("progress  Copying File : %D%\\in\\" + std::string(name) + " to : %D%\\out\\" + name +
                       ' ' + percent);
    }
  }
  EXPECT_EQ(Events().Of("progress"), Wanted(wanted));
}

TEST_F(CopyFiles, FailIfExistsIsTheCopysFlagToo) {
  disk.Write({"a=A"});
  for (const bool failIfExists : {true, false}) {
    action->FailIfExists = failIfExists;
    bool flag = !failIfExists;
    fault = [&flag](const PlatformCall& call) -> std::optional<SysResult> {
      if (!call.copy) return {};
      flag = call.copy->failIfExists;
      return SysResult();
    };
    EXPECT_TRUE(Perform("%D%\\a", "%D%\\b"));
    EXPECT_EQ(flag, failIfExists);
  }
}

TEST(CopyPercentage, HoldsForAnySize) {
  constexpr uint64_t kHuge = uint64_t{1} << 63;
  const struct {
    uint64_t done, total;
    int32_t percent;
  } cases[] = {{0, 0, 0},   {5, 0, 0},   {0, 7, 0},           {29, 100, 29},          {999, 1000, 99},
               {7, 7, 100}, {8, 4, 200}, {kHuge, kHuge, 100}, {kHuge / 2, kHuge, 50}, {kHuge, 1, 2147483647}};
  for (const auto& wanted : cases) {
    EXPECT_EQ(Percentage(wanted.done, wanted.total), wanted.percent) << wanted.done << '/' << wanted.total;
  }
}

}  // namespace
