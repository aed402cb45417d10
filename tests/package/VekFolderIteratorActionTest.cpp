#include "gmock/gmock.h"

#include "iterators/VekFolderIteratorAction.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Platform.h"
#include "support/LoopFixture.h"
#include "support/NullHost.h"
#include "support/OsFixture.h"
#include "support/WineLimits.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct FolderIteratorTest : LoopFixture, testing::Test {
  FolderIteratorTest() {
    iterator.SetVariableName(WideString("D"));
    iterator.StartingFolder = WideString(folder.Path());
  }

  TFolderIterator& iterator = AddLoop<TFolderIterator>("%D%");
};

TEST_F(FolderIteratorTest, AFolderIsFollowedByAllThatIsBelowIt) {
  for (const char* name : {"A/B/C", "A/b2", "c", ".h/x"}) folder.MakeFolder(name);
  folder.Write("file");
  // Where a leading dot does not hide, an attribute does.
  GetPlatform().entries->SetAttributes(folder.Path(".h"), FileAttribute::Hidden);
  EXPECT_THAT(Iterate(), ElementsAre("/A", "/c"));
  iterator.SetIncludeFolderPath(false);
  EXPECT_THAT(Iterate(), ElementsAre("A", "c"));
  iterator.SetRecurse(true);
  EXPECT_THAT(Iterate(), ElementsAre("/A", "/A/B", "/A/B/C", "/A/b2", "/c"));
  EXPECT_THAT(LogLines(),
              ElementsAre("Searching for Folders...", "Found 5 Folders", "/A|/A/B|/A/B/C|/A/b2|/c"));
}

TEST_F(FolderIteratorTest, ALinkToAFolderIsFoundAndOnlyEnteredWhereTheProjectSaysSo) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.MakeFolder("a/b");
  folder.MakeFolder("c");
  MakeLink("../a", folder.Path("c/side"));
  MakeLink("..", folder.Path("c/up"));
  iterator.SetRecurse(true);
  EXPECT_THAT(Iterate(), ElementsAre("/a", "/a/b", "/c", "/c/side", "/c/up"));
  project.followLinks = true;
  EXPECT_THAT(Iterate(), ElementsAre("/a", "/a/b", "/c", "/c/side", "/c/side/b", "/c/up"));
}

TEST_F(FolderIteratorTest, NothingToIterateIsNoFailure) {
  iterator.StartingFolder = WideString(folder.Path("missing"));
  EXPECT_THAT(Iterate(), IsEmpty());
  EXPECT_THAT(Lines(), ElementsAre("Searching for Folders...", "Found 0 Folders", ""));
  iterator.StartingFolder = "%NOWHERE%";
  EXPECT_THAT(Iterate(), IsEmpty());
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_EQ(Errors().size(), 1u);
  EXPECT_EQ(iterator.ActionStatus(), TVekActionStatus::asSucceeded);
}

TEST_F(FolderIteratorTest, AStopEndsTheSearch) {
  folder.MakeFolder("a");
  Context().Stop().RequestStop();
  EXPECT_FALSE(ActionFixture::Run(iterator));
  EXPECT_THAT(Errors(), ElementsAre("Stopping folder search."));
}

TEST(FolderIteratorSettings, KeepPathAndRecursionTogether) {
  NullHost host;
  TFolderIterator iterator(host);
  iterator.SetIncludeFolderPath(false);
  iterator.SetRecurse(true);
  EXPECT_TRUE(iterator.IncludeFolderPath());
  iterator.SetIncludeFolderPath(false);
  EXPECT_FALSE(iterator.Recurse());
}

}  // namespace
