#include <algorithm>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fileops/BActions1.h"
#include "fileops/VekMoveDirectoryAction.h"
#include "fileops/VekRenameDirectoryAction.h"
#include "platform/Environment.h"
#include "support/ActionFixture.h"
#include "support/DiskTable.h"
#include "support/HomeFolder.h"
#include "support/OsFixture.h"
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
  StringList Wanted(const StringList& lines) const { return disk.Lines(lines); }

  DiskTable disk{folder, GetPlatform()};

 private:
  const std::string before_ = GetPlatform().environment->CurrentFolder();
};

TEST_F(Directories, ExistenceDecidesByMode) {
  disk.Write({"file=", "sub/"});
  const auto action = Make<TFileExistsAction>();
  action->Variable = "FOUND";
  using enum TFileExistsMode;
  const struct {
    const char* name;
    bool exists;
    TFileExistsMode mode;
    bool result;
  } cases[] = {
      {"file", true, feFailIfMissing, true},   {"sub", true, feFailIfMissing, true},
      {"gone", false, feFailIfMissing, false}, {"f*", false, feFailIfMissing, false},
      {"sub", true, feFailIfExists, false},    {"gone", false, feFailIfExists, true},
      {"file", true, feIgnore, true},          {"gone", false, feIgnore, true},
  };
  for (const auto& c : cases) {
    action->ExistsMode = c.mode;
    EXPECT_EQ(RunOn(*action, In(c.name)), c.result) << c.name;
    EXPECT_THAT(Lines(), ElementsAre("Checking for " + In(c.name),
                                     c.exists ? "File or Folder Exists" : "File or Folder is missing"));
    EXPECT_EQ(Context().GetVariableValue("FOUND"), Variant(c.exists));
  }
  EXPECT_FALSE(RunOn(*action, "%NO_SUCH_VARIABLE_ANYWHERE%"));
  EXPECT_EQ(Errors().size(), 1u);
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

TEST_F(Directories, DeletesATreeAndLogsItInOrder) {
  disk.Write({"t/b/x=1", "t/b/inner/", "t/A=2", "t/c=3", "kept=4"});
  const auto action = Make<TDeleteDirectoryAction>();
  action->LogDeletedFiles = true;
  EXPECT_TRUE(RunOn(*action, In("t")));
  EXPECT_EQ(Lines(),
            Wanted({"Deleting %D%\\t\\A...", "Recursing directory %D%\\t\\b\\*.*...",
                    "Recursing directory %D%\\t\\b\\inner\\*.*...", "Removing directory %D%\\t\\b\\inner",
                    "Deleting %D%\\t\\b\\x...", "Removing directory %D%\\t\\b", "Deleting %D%\\t\\c...",
                    "Removing directory : %D%\\t"}));
  EXPECT_EQ(disk.Read(), StringList{"kept=4"});
  EXPECT_TRUE(RunOn(*action, In("t")));
  EXPECT_THAT(Events().events, IsEmpty());
}

TEST_F(Directories, ARelativeFolderIsFoundFromTheRootThatBecomesCurrent) {
  for (const char* name : {"t", "t\\."}) {
    disk.Write({"t/x=1"});
    ASSERT_TRUE(GetPlatform().environment->SetCurrentFolder(folder.Path()));
    EXPECT_TRUE(RunOn(*Make<TDeleteDirectoryAction>(), name)) << name;
    EXPECT_THAT(disk.Read(), IsEmpty());
    const std::string current = GetPlatform().environment->CurrentFolder();
    EXPECT_EQ(GetPlatform().environment->FullPath(current + "/.."), current);
  }
}

/// What is on the disk, what is asked, and what comes of it.
struct DeleteCase {
  const char* name;
  StringList disk;
  bool tree, readOnly, log;
  bool result;
  StringList lines, left;
};

void PrintTo(const DeleteCase& testCase, std::ostream* stream) { *stream << testCase.name; }

struct DeleteDirectoryTable : Directories, testing::WithParamInterface<DeleteCase> {};

TEST_P(DeleteDirectoryTable, Deletes) {
  const DeleteCase& wanted = GetParam();
  disk.Write(wanted.disk);
  const auto action = Make<TDeleteDirectoryAction>();
  action->DeleteTree = wanted.tree;
  action->DeleteReadOnly = wanted.readOnly;
  action->LogDeletedFiles = wanted.log;
  EXPECT_EQ(RunOn(*action, In("t")), wanted.result);
  EXPECT_EQ(Lines(), Wanted(wanted.lines));
  EXPECT_EQ(disk.Read(), wanted.left);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DeleteDirectoryTable,
    testing::Values(DeleteCase{"Empty", {"t/"}, false, false, false, true, {}, {}},
                    DeleteCase{"NotEmpty",
                               {"t/x=1"},
                               false,
                               false,
                               false,
                               false,
                               {"Unable to Delete Directory : %D%\\t", "{145}"},
                               {"t/x=1"}},
                    DeleteCase{"ReadOnlyFileEndsIt",
                               {"t/a=1", "!t/b=2", "t/c=3"},
                               true,
                               false,
                               false,
                               false,
                               {"Unable to Delete Directory : %D%\\t", "{5}"},
                               {"!t/b=2", "t/c=3"}},
                    DeleteCase{"FailureWhileLogging",
                               {"!t/b=2"},
                               true,
                               false,
                               true,
                               false,
                               {"Deleting %D%\\t\\b...", "An error occured : ", "{5}"},
                               {"!t/b=2"}},
                    DeleteCase{
                        "ReadOnlyFilesWhenTold", {"t/a=1", "!t/s/b=2"}, true, true, false, true, {}, {}}),
    [](const auto& info) { return info.param.name; });

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

TEST_F(Directories, AFolderIsMovedAsItStands) {
  disk.Write({"a/x=1", "taken/"});
  const auto action = Make<TVekMoveDirectoryAction>();
  action->Directory = In("a");
  action->DestinationDirectory = In("b");
  EXPECT_TRUE(ActionFixture::Run(*action));
  EXPECT_EQ(Lines(), Wanted({"Directory : %D%\\a - moved to : %D%\\b"}));
  action->Directory = In("b");
  action->DestinationDirectory = In("taken");
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_EQ(Lines(), Wanted({"Error moving Directory : %D%\\b - to : %D%\\taken", "Error : {183}"}));
  EXPECT_EQ(disk.Read(), (StringList{"b/x=1", "taken/"}));
}

TEST_F(Directories, RenamesInPlace) {
  disk.Write({"dir/x=1", "file.txt=2", "taken=3"});
  const StringList kIllegal = {
      "Make sure new name does not contain path or drive information (file name only.)"};
  const struct {
    bool folder;
    const char* source;
    const char* name;
    bool result;
    StringList lines;
  } cases[] = {
      {true, "dir/", "New dir", true, {"Directory renamed"}},
      {false, "FILE.TXT", "File.TXT", true, {"File renamed"}},
      {true, "file.txt", "x", false, {"Directory doesn't exist"}},
      {false, "New dir", "x", false, {"File doesn't exist"}},
      {false, "File.TXT", "taken", false, {"Rename failed: {183}"}},
      {false,
       "taken",
       "sub\\x",
       false,
       {"Error: New name (sub\\x) contains illegal characters", kIllegal[0]}},
      {true, "New dir", "C:x", false, {"Error: New name (C:x) contains illegal characters", kIllegal[0]}},
  };
  const auto action = Make<TRenameDirAction>();
  for (const auto& c : cases) {
    action->RenameDir = c.folder;
    action->SourceDirectory = action->SourceFile = In(c.source);
    action->NewDirName = c.name;
    EXPECT_EQ(ActionFixture::Run(*action), c.result) << c.source;
    EXPECT_EQ(Lines(), Wanted(c.lines));
  }
  StringList wanted{WineLimits::NoRenameWithinOneFile() ? "file.txt=2" : "File.TXT=2", "New dir/x=1",
                    "taken=3"};
  std::ranges::sort(wanted);
  EXPECT_EQ(disk.Read(), wanted);
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
