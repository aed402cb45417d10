#include "gmock/gmock.h"

#include "fileops/BActions1.h"
#include "fileops/VekMoveDirectoryAction.h"
#include "fileops/VekRenameDirectoryAction.h"
#include "platform/Environment.h"
#include "support/HomeFolder.h"
#include "support/OsFixture.h"
#include "support/RunTable.h"
#include "support/WineLimits.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Directories : ActionFixture, testing::Test {
  ~Directories() override { GetPlatform().environment->SetCurrentFolder(before_); }

  template <class Action>
  bool RunOn(Action& action, const std::string& path) {
    action.SetFileOrDirectory(WideString(path));
    return ActionFixture::Run(action);
  }
  std::string In(std::string_view name) const { return folder.WindowsPath() + '\\' + std::string(name); }

  DiskTable disk{folder, GetPlatform()};

 private:
  const std::string before_ = GetPlatform().environment->CurrentFolder();
};

const std::string kChecked = "Checking for %D%\\";
const std::string kThere = "|File or Folder Exists", kMissing = "|File or Folder is missing";

// clang-format off
const RunCase kExistence[] = {
    {"AFile", "FileOrDirectory=%D%\\file|Variable=FOUND", "file=", true, kChecked + "file" + kThere, "file=", "$FOUND=Boolean True"},
    {"AFolder", "FileOrDirectory=%D%\\sub", "sub/", true, kChecked + "sub" + kThere, "sub/"},
    {"Nothing", "FileOrDirectory=%D%\\gone|Variable=FOUND", "", false, kChecked + "gone" + kMissing, "", "$FOUND=Boolean False"},
    {"NoWildcard", "FileOrDirectory=%D%\\f*", "file=", false, kChecked + "f*" + kMissing, "file="},
    {"NotToExist", "FileOrDirectory=%D%\\sub|ExistsMode=feFailIfExists", "sub/", false, kChecked + "sub" + kThere, "sub/"},
    {"NothingNotToExist", "FileOrDirectory=%D%\\gone|ExistsMode=feFailIfExists", "", true, kChecked + "gone" + kMissing, ""},
    {"NothingDecided", "FileOrDirectory=%D%\\gone|ExistsMode=feIgnore", "", true, kChecked + "gone" + kMissing, ""},
    {"FileDecidesNothing", "FileOrDirectory=%D%\\file|ExistsMode=feIgnore", "file=", true, kChecked + "file" + kThere, "file="},
};

const std::string kUnable = "Unable to Delete Directory : %D%\\t|";

const RunCase kDeletes[] = {
    {"Empty", "FileOrDirectory=%D%\\t|DeleteTree=False", "t/", true, "", ""},
    {"NotThere", "FileOrDirectory=%D%\\t", "", true, "", ""},
    {"NotEmpty", "FileOrDirectory=%D%\\t|DeleteTree=False", "t/x=1", false, kUnable + "{145}", "t/x=1"},
    {"ReadOnlyFileEndsIt", "FileOrDirectory=%D%\\t", "t/a=1 !t/b=2 t/c=3", false, kUnable + "{5}", "!t/b=2 t/c=3"},
    {"FailureWhileLogging", "FileOrDirectory=%D%\\t|LogDeletedFiles=True", "!t/b=2", false,
     "Deleting %D%\\t\\b...|An error occured : |{5}", "!t/b=2"},
    {"ReadOnlyFilesWhenTold", "FileOrDirectory=%D%\\t|DeleteReadOnly=True", "t/a=1 !t/s/b=2", true, "", ""},
    {"ATreeLoggedInOrder", "FileOrDirectory=%D%\\t|LogDeletedFiles=True", "t/b/x=1 t/b/inner/ t/A=2 t/c=3 kept=4", true,
     "Deleting %D%\\t\\A...|Recursing directory %D%\\t\\b\\*.*...|Recursing directory %D%\\t\\b\\inner\\*.*...|"
     "Removing directory %D%\\t\\b\\inner|Deleting %D%\\t\\b\\x...|Removing directory %D%\\t\\b|Deleting %D%\\t\\c...|"
     "Removing directory : %D%\\t", "kept=4"},
};

const RunCase kMoves[] = {
    {"AsItStands", "Directory=%D%\\a|DestinationDirectory=%D%\\b", "a/x=1", true, "Directory : %D%\\a - moved to : %D%\\b", "b/x=1"},
    {"NotOverAnother", "Directory=%D%\\a|DestinationDirectory=%D%\\b", "a/x=1 b/", false,
     "Error moving Directory : %D%\\a - to : %D%\\b|Error : {183}", "a/x=1 b/"},
};

const std::string kIllegal =
    " contains illegal characters|Make sure new name does not contain path or drive information (file name only.)";

const RunCase kRenames[] = {
    {"AFolder", "RenameDir=True|SourceDirectory=%D%\\dir/|NewDirName=New", "dir/x=1", true, "Directory renamed", "New/x=1"},
    {"AFile", "RenameDir=False|SourceFile=%D%\\a|NewDirName=b", "a=1", true, "File renamed", "b=1"},
    {"NoFolder", "RenameDir=True|SourceDirectory=%D%\\a|NewDirName=x", "a=1", false, "Directory doesn't exist", "a=1"},
    {"NoFile", "RenameDir=False|SourceFile=%D%\\dir|NewDirName=x", "dir/", false, "File doesn't exist", "dir/"},
    {"Taken", "RenameDir=False|SourceFile=%D%\\a|NewDirName=b", "a=1 b=2", false, "Rename failed: {183}", "a=1 b=2"},
    {"APath", "RenameDir=False|SourceFile=%D%\\a|NewDirName=sub\\x", "a=1", false, "Error: New name (sub\\x)" + kIllegal, "a=1"},
    {"ADrive", "RenameDir=True|SourceDirectory=%D%\\d|NewDirName=C:x", "d/", false, "Error: New name (C:x)" + kIllegal, "d/"},
};
// clang-format on

TEST(DirectoryRuns, Existence) { ExpectRuns<TFileExistsAction>(kExistence); }
TEST(DirectoryRuns, Deleting) { ExpectRuns<TDeleteDirectoryAction>(kDeletes); }
TEST(DirectoryRuns, Moving) { ExpectRuns<TVekMoveDirectoryAction>(kMoves); }
TEST(DirectoryRuns, Renaming) { ExpectRuns<TRenameDirAction>(kRenames); }

TEST_F(Directories, AFileIsGivenOtherLetters) {
  if (WineLimits::NoRenameWithinOneFile()) GTEST_SKIP() << "Wine leaves the case of letters";
  disk.Write({"file.txt=2"});
  const auto action = Make<TRenameDirAction>();
  action->RenameDir = false;
  action->SourceFile = In("FILE.TXT");
  action->NewDirName = "File.TXT";
  EXPECT_TRUE(ActionFixture::Run(*action));
  EXPECT_EQ(disk.Read(), StringList{"File.TXT=2"});
}

TEST_F(Directories, TheModeOfOldProjectsIsReadAndNeverWritten) {
  const auto action = Make<TFileExistsAction>();
  action->SetFailIfExists(true);
  EXPECT_EQ(action->ExistsMode, TFileExistsMode::feFailIfExists);
  action->SetFailIfExists(false);
  EXPECT_EQ(action->ExistsMode, TFileExistsMode::feFailIfMissing);
  EXPECT_FALSE(action->FindProperty("FailIfExists")->stored);
}

TEST_F(Directories, CreatesWithItsParentsWhenForced) {
  const auto action = Make<TCreateDirectoryAction>();
  const std::string deep = In("a\\b");
  EXPECT_FALSE(RunOn(*action, deep));
  EXPECT_THAT(Lines(), ElementsAre("Unable to Create directory : " + deep));
  action->Force = true;
  for (int pass = 0; pass < 2; ++pass) {
    EXPECT_TRUE(RunOn(*action, " " + deep + " "));
    EXPECT_THAT(Lines(), ElementsAre("Created directory : " + deep));
  }
  EXPECT_TRUE(RunOn(*action, "  "));
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_FALSE(RunOn(*action, "%NO_SUCH_VARIABLE_ANYWHERE%"));
  ASSERT_EQ(Lines().size(), 2u);
  EXPECT_EQ(Lines()[0], "Unable to Create directory : ");
  EXPECT_EQ(action->GetFlags(), 17);
}

TEST_F(Directories, ARelativeFolderIsFoundFromTheRootThatBecomesCurrent) {
  for (const char* name : {"t", "t\\.", "t/sub/.."}) {
    disk.Write({"t/x=1", "t/sub/y=1"});
    ASSERT_TRUE(GetPlatform().environment->SetCurrentFolder(folder.Path()));
    EXPECT_TRUE(RunOn(*Make<TDeleteDirectoryAction>(), name)) << name;
    EXPECT_THAT(disk.Read(), IsEmpty());
    const std::string current = GetPlatform().environment->CurrentFolder();
    EXPECT_EQ(GetPlatform().environment->FullPath(current + "/.."), current);
  }
}

TEST_F(Directories, TheFoldersOwnReadOnlyMarkGoesWhenTold) {
  if (WineLimits::FixedAttributes()) GTEST_SKIP() << "no folder is read-only";
  folder.MakeFolder("t");
  SetMode(folder.Path("t"), 0555);
  const auto action = Make<TDeleteDirectoryAction>();
  EXPECT_FALSE(RunOn(*action, In("t")));
  action->DeleteReadOnly = true;
  EXPECT_TRUE(RunOn(*action, In("t")));
}

TEST_F(Directories, LinksAreRemovedAndNeverFollowed) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "links are not made";
  disk.Write({"kept/x=1", "t/a=2"});
  MakeLink(folder.Path("kept"), folder.Path("t/link"));
  MakeLink(folder.Path("kept"), folder.Path("top"));
  const auto action = Make<TDeleteDirectoryAction>();
  EXPECT_TRUE(RunOn(*action, In("t")));
  EXPECT_TRUE(RunOn(*action, In("top")));
  EXPECT_EQ(disk.Read(), StringList{"kept/x=1"});
}

TEST_F(Directories, WhatIsProtectedIsLeftUntouched) {
  const std::string home = In("h");
  disk.Write({"h/t/x=1", "h/y=2"});
  const HomeFolder moved(home);
  for (const std::string& path : {home, home + "\\t\\..", folder.Path()}) {
    EXPECT_FALSE(RunOn(*Make<TDeleteDirectoryAction>(), path));
    EXPECT_THAT(Lines(), ElementsAre("Refused : " + path + " is protected (--no-preserve-root allows it)"));
  }
  const auto move = Make<TVekMoveDirectoryAction>();
  move->Directory = home;
  move->DestinationDirectory = In("elsewhere");
  EXPECT_FALSE(ActionFixture::Run(*move));
  const auto rename = Make<TRenameDirAction>();
  rename->SourceDirectory = home;
  rename->NewDirName = "other";
  EXPECT_FALSE(ActionFixture::Run(*rename));
  EXPECT_EQ(disk.Read(), (StringList{"h/t/x=1", "h/y=2"}));
  EXPECT_TRUE(RunOn(*Make<TDeleteDirectoryAction>(), home + "\\t"));
  Context().AllowProtected();
  EXPECT_TRUE(RunOn(*Make<TDeleteDirectoryAction>(), home));
  EXPECT_THAT(disk.Read(), IsEmpty());
}

}  // namespace
