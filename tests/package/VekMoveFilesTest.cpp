#include "fileops/VekCopyMove.h"
#include "package/CopyMoveTesting.h"
#include "pages/FCopyMoveEditFrame.h"
#include "platform/FileAttributes.h"
#include "support/NullHost.h"
#include "support/ScriptedServices.h"
#include "support/WineLimits.h"

using testing::ElementsAre;

namespace {

const std::string kFailed = " --> Error Moving File : ";

struct MoveFiles : CopyMoveRuns<TMoveFilesAction>, testing::Test {};

// clang-format off
const CopyMoveCase kMoves[] = {
    {"IntoAFolder", "", "in/a.txt=A in/b.txt=B in/c.doc=C in/sub.txt/d=D out/", "%D%\\in\\*.txt", "%D%\\out", true,
     "2 Files Moved.", "in/c.doc=C in/sub.txt/d=D out/a.txt=A out/b.txt=B", 2},
    {"DoesNotRecurse", "Recurse Force", "in/one/a=A in/b=B", "%D%\\in\\*", "%D%\\out", true, "1 Files Moved.", "in/one/a=A out/b=B", 1},
    {"ForceMakesTheParentOfAFile", "Force", "a=A", "%D%\\a", "%D%\\x\\y\\b", true, "1 Files Moved.", "x/y/b=A", 1},
    {"ReplacesAFile", "", "a=A b=old", "%D%\\a", "%D%\\b", true, "1 Files Moved.", "b=A", 1},
    {"GoesOnAfterAFailedMove", "", "in/a=A in/b=B out/a/x=folder", "%D%\\in\\*", "%D%\\out", true,
     "FAILED %D%\\in\\a -> %D%\\out\\a| --> {183}|1 Files Moved.", "in/a=A out/a/x=folder out/b=B", 1, 1},
    {"StopsAfterAFailedMove", "StopOnAnyErrors", "in/a=A in/b=B out/a/x=folder", "%D%\\in\\*", "%D%\\out", false,
     "FAILED %D%\\in\\a -> %D%\\out\\a| --> {183}|0 Files Moved.", "in/a=A in/b=B out/a/x=folder", 0, 1},
    {"ExistingTargetStopsEvenSo", "FailIfExists", "in/a=A in/b=B in/c=C out/b=old", "%D%\\in\\*", "%D%\\out", false,
     "FAILED %D%\\in\\b -> %D%\\out\\b| --> The target File exists and \"Fail if Exists\" is checked|1 Files Moved.", "in/b=B in/c=C out/a=A out/b=old", 1},
    {"ReadOnlyTargetStopsEvenSo", "", "in/a=A in/b=B in/c=C !out/b=old", "%D%\\in\\*", "%D%\\out", false,
     "FAILED %D%\\in\\b -> %D%\\out\\b| --> The target File is marked \"Read Only\"|1 Files Moved.", "in/b=B in/c=C out/a=A !out/b=old", 1},
    {"OverwritesReadOnlyAndKeepsTheSourcesAttributes", "OverwriteReadOnly", "!in/a=A !out/a=old", "%D%\\in\\*", "%D%\\out", true, "1 Files Moved.", "in/ !out/a=A", 1},
    {"ClearsTheAttributes", "ClearAttributes", "!in/a=A out/", "%D%\\in\\*", "%D%\\out", true, "1 Files Moved.", "in/ out/a=A", 1},
    {"OntoItself", "", "a=A", "%D%\\a", "%D%\\a", true, "1 Files Moved.", "a=A", 1},
    {"OntoItselfInOtherWords", "", "x/a=A", "%D%/x/*", "%D%\\x", true, "1 Files Moved.", "x/a=A", 1},
    {"NothingFoundIsNoFailure", "FailIfZeroFiles StopOnAnyErrors", "in/", "%D%\\in\\*", "%D%\\out", true, "0 Files Moved.", "in/", 0},
    {"NothingMovedIsAFailureWhenAsked", "FailIfZeroFiles", "a=A", "%D%\\a", "%D%\\missing\\a", false,
     "FAILED %D%\\a -> %D%\\missing\\a| --> {3}|0 Files Moved.", "a=A", 0, 1},
};

const std::string kIntoOut = "FileSpec=%D%\\in\\*|Target=%D%\\out", kMoving = "Moving files : %D%\\in\\* -> %D%\\out|";
const std::string kFirstFailed = kMoving + kFailed + "%D%\\in\\a -> %D%\\out\\a| --> ";
const RunCase kOthers[] = {
    {"ATargetThatCannotMakeWayStopsWhenAsked", kIntoOut + "|StopOnAnyErrors=True", "in/a=A in/b=B out/a=old", false,
     kFirstFailed + "{19}|0 Files Moved.", "in/a=A in/b=B out/a=old", "ErrorCount=0", "", "entries.CheckReplace a 19"},
    {"ATargetThatCannotMakeWay", kIntoOut, "in/a=A in/b=B out/a=old", true,
     kFirstFailed + "{183}|1 Files Moved.", "in/a=A out/a=old out/b=B", "ErrorCount=1", "", "entries.CheckReplace a 19"},
    {"ASearchThatBreaksOff", kIntoOut, "in/a=A out/", true, kMoving + "1 Files Moved.", "in/ out/a=A", "",
     "Cannot search %D%\\in\\: {31}", "search.Result * 31"},
    {"WithoutAFolderEveryMatchTakesTheName", "FileSpec=%D%\\*.txt|Target=%D%\\one|TargetIsDir=False", "a.txt=A b.txt=B", true,
     "Moving files : %D%\\*.txt -> %D%\\one|2 Files Moved.", "one=B"},
    {"ASourceThatVanishedIsNamed", kIntoOut + "|StopOnAnyErrors=True", "in/a=A in/b=B out/", false,
     kFirstFailed + "Source File Does not exist|0 Files Moved.", "in/a=A in/b=B out/", "", "", "entries.FileExists a 2"},
    {"OrJustFails", kIntoOut, "in/a=A in/b=B out/", true, kFirstFailed + "{2}|1 Files Moved.", "in/a=A out/b=B", "", "", "entries.Move a 2"},
    {"NoSource", "FileSpec= |Target=out", "", true, "", ""},
    {"NoTarget", "FileSpec=%D%\\a|Target=\t", "", true, "", ""},
    {"AnUnknownTarget", "FileSpec=%D%\\a|Target=%X%", "", false, " --> Unable to Move files : %D%\\a| --> " + kUnknownX, ""},
};
// clang-format on

TEST(MoveFilesRuns, Table) {
  for (const CopyMoveCase& wanted : kMoves) {
    CopyMoveRuns<TMoveFilesAction>().Expect(wanted, "Moving", " --> Error Moving File :");
  }
}
TEST(MoveFilesRuns, Others) { ExpectRuns<TMoveFilesAction>(kOthers); }

TEST_F(MoveFiles, AFileIsGivenOtherLetters) {
  if (WineLimits::NoRenameWithinOneFile()) GTEST_SKIP() << "Wine leaves the case of letters";
  disk.Write({"a.txt=A"});
  EXPECT_TRUE(Perform("%D%\\a.txt", "%D%\\A.TXT"));
  EXPECT_THAT(disk.Read(), ElementsAre("A.TXT=A"));
}

TEST_F(MoveFiles, SystemFilesStay) {
  disk.Write({"in/h=H", "in/s=S", "out/"});
  ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path("in/h"), FileAttribute::Hidden));
  ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path("in/s"), FileAttribute::System));
  EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(disk.Read(), (StringList{"in/s=S", "out/h=H"}));
}

TEST_F(MoveFiles, OneReadOnlyTargetStandsForAllThatFollow) {
  disk.Write({"in/a=A", "in/b=B", "in/c=C", "out/a=old", "!out/b=old", "out/c=old"});
  action->OverwriteReadOnly = true;
  StringList reset;
  fault = [&reset](const PlatformCall& call) -> std::optional<SysResult> {
    if (call.operation == "entries.SetAttributes") {
      reset.push_back(std::string(NamePart(call.path)) + ' ' + std::to_string(call.bits));
    }
    return {};
  };
  for (int run = 1; run <= 2; ++run) {  // the next run knows nothing of it
    EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
    EXPECT_THAT(reset, ElementsAre("b 128", "c 128"));
    disk.Write({"in/a=A", "in/c=C"});
  }
  EXPECT_EQ(action->FilesAffected, 2);
}

TEST_F(MoveFiles, OnlyAMoveIntoAFolderHasProgressAndCrossesVolumes) {
  disk.Write({"a=A", "out/"});
  for (const bool isDir : {true, false}) {
    action->SetTargetIsDir(isDir);
    fault = [&](const PlatformCall& call) -> std::optional<SysResult> {
      if (!call.progress) return {};
      EXPECT_EQ(call.bits, isDir ? 10u : 0u);
      EXPECT_EQ(static_cast<bool>(*call.progress), isDir);
      if (isDir) (*call.progress)(1, 3);
      return SysResult();
    };
    EXPECT_TRUE(Perform("%D%\\a", "%D%\\out"));
    const std::string text = Wanted({"progress  Moving File : %D%\\a to : %D%\\out\\a "})[0];
    const StringList progress{text + '0', text + "33", "status "};
    EXPECT_EQ(Events().events, isDir ? progress : StringList{"status "});
  }
}

TEST(CopyMoveSettings, KeepEachOtherConsistent) {
  const struct {
    std::string set;
    bool isDir, recurse;
  } cases[] = {
      {"FileSpec=a*", true, false},
      {"FileSpec=?", true, false},
      {"FileSpec=a", false, false},
      {"FileSpec=a*|TargetIsDir=False|FileSpec=a*", false, false},  // unchanged: no effect
      {"FileSpec=a*|TargetIsDir=False|FileSpec=b*", true, false},
      {"Recurse=True", true, true},
      {"Recurse=True|TargetIsDir=False", false, false},
      {"Recurse=True|Recurse=False", true, false},
  };
  for (const auto& wanted : cases) {
    NullHost host;
    TMoveFilesAction action(host);
    SetProperties(action, wanted.set);
    EXPECT_EQ(action.TargetIsDir(), wanted.isDir) << wanted.set;
    EXPECT_EQ(action.Recurse(), wanted.recurse) << wanted.set;
  }
}

template <class Control>
Control& Find(const TFrame& page, std::string_view name) {
  return dynamic_cast<Control&>(*page.FindControl(name));
}

TEST(CopyMovePages, WriteWhatTheyShow) {
  NullHost host;
  TCopyFilesAction action(host);
  TCopyFrame page;
  page.ReadActionData(action);
  Find<TButtonEdit>(page, "txtSource").Enter("*.txt");
  EXPECT_TRUE(Find<TCheckBox>(page, "chkTargetIsDir").Checked());
  Find<TCheckBox>(page, "chkRecurse").Click();
  Find<TCheckBox>(page, "chkTargetIsDir").Click();
  EXPECT_FALSE(Find<TCheckBox>(page, "chkRecurse").Checked());
  page.WriteActionData(action);
  EXPECT_EQ(action.FileSpec(), "*.txt");
  EXPECT_FALSE(action.TargetIsDir());
  EXPECT_FALSE(action.Recurse());
}

TEST(CopyMovePages, BrowseForWhatTheTargetIs) {
  ScriptedServices services;
  services.answer = "C:\\chosen";
  TMoveFrame page;
  auto& target = Find<TButtonEdit>(page, "txtTarget");
  target.ClickButton();
  EXPECT_THAT(services.asked, ElementsAre("Select File", "", "All Files (*.*)|*.*", ""));
  Find<TCheckBox>(page, "chkTargetIsDir").Click();
  target.ClickButton();
  EXPECT_THAT(services.asked, ElementsAre("Select Directory", "C:\\chosen"));
}

}  // namespace
