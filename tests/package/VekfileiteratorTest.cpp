#include "gmock/gmock.h"

#include "iterators/Vekfileiterator.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/FileAttributes.h"
#include "support/LoopFixture.h"
#include "support/NullHost.h"
#include "support/OsFixture.h"
#include "support/WineLimits.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct FileIteratorTest : LoopFixture, testing::Test {
  TFileIterator& AddIterator() {
    auto& iterator = AddLoop<TFileIterator>("%F%");
    iterator.SetLoopVariable("F");
    return iterator;
  }

  TFileIterator& AddSearch(std::string_view spec) {
    TFileIterator& iterator = AddIterator();
    iterator.SetFileSpec(WideString(folder.Path(spec)));
    return iterator;
  }

  TFileIterator& AddSet(StringList includes) {
    project.fileSets.push_back({"Set", folder.Path(), std::move(includes), {}});
    TFileIterator& iterator = AddIterator();
    iterator.SetUseFileSet(true);
    iterator.SetFileSetName("Set");
    return iterator;
  }
};

TEST_F(FileIteratorTest, TheFilesOfAFolderComeBeforeThoseOfItsSubFolders) {
  for (const char* name : {"b.txt", "A.txt", "a/z.txt", "a/n/y.txt", "c.bin", "o/x.txt"}) folder.Write(name);
  AddSearch("*.txt").SetRecurse(true);
  EXPECT_THAT(Iterate(), ElementsAre("/A.txt", "/b.txt", "/a/z.txt", "/a/n/y.txt", "/o/x.txt"));
  EXPECT_THAT(LogLines(), ElementsAre("Searching for Files...", "Found 5 Files.",
                                      "/A.txt|/b.txt|/a/z.txt|/a/n/y.txt|/o/x.txt"));
}

TEST_F(FileIteratorTest, FindsAreSpeltAsTheSearchedPathIs) {
  for (const char* name : {"in/a.txt", "in/n/b.txt"}) folder.Write(name);
  TFileIterator& iterator = AddIterator();
  iterator.SetRecurse(true);
  for (const std::string& base : {WithDelimiters(folder.Path(), '/'), folder.WindowsPath()}) {
    iterator.SetFileSpec(WideString(base + "/in\\*.txt"));
    Events().Clear();
    Iterate();
    const char delimiter =
        GetPlatform().environment->PathDelimiter(folder.WindowsPath() == base ? "\\" : "/");
    const StringList wanted = {WithDelimiters(base + "/in/a.txt", delimiter),
                               WithDelimiters(base + "/in/n/b.txt", delimiter)};
    EXPECT_EQ(SplitAt(Lines().back(), "\r\n"), wanted);
  }
}

TEST_F(FileIteratorTest, WhatASearchFinds) {
  for (const char* name : {"a.txt", "b.txt", ".h.txt", "sub/a.txt", ".git/a.txt"}) folder.Write(name);
  Entries& entries = *GetPlatform().entries;
  entries.SetAttributes(folder.Path("b.txt"), FileAttribute::ReadOnly);
  // Where a leading dot does not hide, an attribute does.
  for (const char* name : {".h.txt", ".git"}) entries.SetAttributes(folder.Path(name), FileAttribute::Hidden);
  struct Case {
    std::string_view spec;
    bool recurse, path, anyFile;
    StringList wanted;
  };
  const Case cases[] = {
      {"*.txt", false, true, false, {"/a.txt", "/b.txt"}},
      {"*.txt", false, false, false, {"a.txt", "b.txt"}},
      {"a.txt", false, true, false, {"/a.txt"}},
      {"a.txt", true, true, false, {"/a.txt", "/sub/a.txt"}},
      {"*", false, false, false, {"a.txt", "b.txt"}},
      {"*.*", false, false, true, {".", "..", ".git", ".h.txt", "a.txt", "b.txt", "sub"}},
      {"none.*", true, true, false, {}},
      {"missing/*", true, true, true, {}},
  };
  TFileIterator& iterator = AddIterator();
  for (const Case& test : cases) {
    iterator.SetFileSpec(WideString(folder.Path(test.spec)));
    iterator.SetIncludeFilePath(test.path);
    iterator.SetRecurse(test.recurse);
    iterator.FindAnyFile = test.anyFile;
    EXPECT_EQ(Iterate(), test.wanted) << test.spec;
  }
}

TEST_F(FileIteratorTest, NothingFoundIsNoPassAndNoFailure) {
  AddSearch("*.txt");
  EXPECT_THAT(Iterate(), IsEmpty());
  EXPECT_THAT(Lines(), ElementsAre("Searching for Files...", "Found 0 Files.", ""));
  EXPECT_EQ(project.actions[0].action->ActionStatus(), TVekActionStatus::asSucceeded);
}

TEST_F(FileIteratorTest, CountAndIndexFollowTheLoop) {
  for (const char* name : {"a", "b"}) folder.Write(name);
  TFileIterator& iterator = AddSearch("*");
  StringList seen;
  whenPassed = [&] {
    seen.push_back(std::to_string(iterator.FileIndex()) + " of " + std::to_string(iterator.FileCount()));
    return true;
  };
  Iterate();
  EXPECT_THAT(seen, ElementsAre("0 of 2", "1 of 2"));
  EXPECT_EQ(iterator.FileCount(), 0);
}

TEST_F(FileIteratorTest, LinksToFoldersAreFollowedWhereTheProjectSaysSo) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.Write("a/x.txt");
  folder.Write("b/y.txt");
  MakeLink("..", folder.Path("a/up"));
  MakeLink("../b", folder.Path("a/side"));
  AddSearch("*.txt").SetRecurse(true);
  EXPECT_THAT(Iterate(), ElementsAre("/a/x.txt", "/b/y.txt"));
  project.followLinks = true;
  EXPECT_THAT(Iterate(), ElementsAre("/a/x.txt", "/a/side/y.txt", "/b/y.txt"));
}

TEST_F(FileIteratorTest, ReadsAFileSet) {
  for (const char* name : {"b.c", "a.c", "sub/d.c", "a.h"}) folder.Write(name);
  TFileIterator& iterator = AddSet({"**/*.c"});
  EXPECT_THAT(Iterate(), ElementsAre("/a.c", "/b.c", "/sub/d.c"));
  EXPECT_THAT(LogLines(), ElementsAre("Retrieving fileset...", "Refreshing fileset...",
                                      "File Set contents (3 files) :", "/a.c|/b.c|/sub/d.c"));
  iterator.FileSetRefreshBefore = false;
  iterator.SetIncludeFilePath(false);
  folder.Write("e.c");
  EXPECT_THAT(Iterate(), ElementsAre("a.c", "b.c", "e.c", "d.c"));
  EXPECT_THAT(LogLines(),
              ElementsAre("Retrieving fileset...", "File Set contents (4 files) :", "a.c|b.c|e.c|d.c"));
}

TEST_F(FileIteratorTest, AFileSetReadAgainAfterEachPassChangesTheList) {
  for (const char* name : {"a", "b", "c", "d"}) folder.Write(name);
  AddSet({"*"}).FileSetRefreshAfterEach = true;
  whenPassed = [this] {
    if (passes.size() == 1) {
      for (const char* name : {"a", "c", "d"}) GetPlatform().entries->Delete(folder.Path(name));
      folder.Write("e");
    }
    return true;
  };
  EXPECT_THAT(Iterate(), ElementsAre("/a", "/b", "/e"));
  EXPECT_THAT(LogLines(),
              ElementsAre("Retrieving fileset...", "Refreshing fileset...",
                          "File Set contents (4 files) :", "/a|/b|/c|/d", "Refreshing fileset...",
                          "2 file(s) no longer appear in the fileset.", "1 new file(s) found in the fileset.",
                          "Refreshing fileset...", "Refreshing fileset...",
                          "Final file list which was iterated (after all intermediate updates):", "/a|/b|/e",
                          "(3 files.)"));
}

TEST_F(FileIteratorTest, TheMergeGoesByFullPaths) {
  for (const char* name : {"a", "b"}) folder.Write(name);
  TFileIterator& iterator = AddSet({"*"});
  iterator.SetIncludeFilePath(false);
  iterator.FileSetRefreshAfterEach = true;
  EXPECT_THAT(Iterate(), ElementsAre("a", "/a", "/b"));
}

TEST_F(FileIteratorTest, Failures) {
  folder.Write("a");
  TFileIterator& iterator = AddSearch("*");
  iterator.FileSetRefreshAfterEach = true;  // looks for the file set although none is used
  EXPECT_THAT(Iterate(), ElementsAre("/a"));
  EXPECT_THAT(Errors(), ElementsAre("File set \"\" not found."));

  iterator.SetUseFileSet(true);
  iterator.SetFileSetName("Nothing");
  EXPECT_THAT(Iterate(), IsEmpty());
  EXPECT_THAT(Errors(), ElementsAre("File set \"Nothing\" not found."));

  project.fileSets.push_back({"Nothing", "%NOWHERE%", {"*"}, {}});
  Iterate();
  ASSERT_EQ(Errors().size(), 1u);
  EXPECT_THAT(Errors()[0], testing::MatchesRegex("Error while evaluating fileset : .*NOWHERE.*"));

  iterator.SetUseFileSet(false);
  iterator.SetFileSpec(WideString("%NOWHERE%\\*"));
  Iterate();
  ASSERT_EQ(Errors().size(), 1u);
  EXPECT_THAT(Errors()[0], testing::MatchesRegex("Error Setting File Spec : .*NOWHERE.*"));
}

TEST(FileIteratorSettings, KeepPathAndRecursionTogether) {
  NullHost host;
  TFileIterator iterator(host);
  EXPECT_TRUE(iterator.IncludeFilePath() && !iterator.Recurse() && iterator.FileSetRefreshBefore);
  iterator.SetIncludeFilePath(false);
  iterator.SetRecurse(true);
  EXPECT_TRUE(iterator.IncludeFilePath());
  iterator.SetIncludeFilePath(false);
  EXPECT_FALSE(iterator.Recurse());
}

TEST(FileIteratorSettings, TheDescriptionFollowsTheMode) {
  NullHost host;
  TFileIterator iterator(host);
  EXPECT_EQ(iterator.GetDescription(), "File Iterator [  ]");
  iterator.SetFileSpec(WideString("C:\\*.txt"));
  iterator.SetFileSetName("Set");
  EXPECT_EQ(iterator.GetDescription(), "File Iterator [ C:\\*.txt ]");
  iterator.SetUseFileSet(true);
  EXPECT_EQ(iterator.GetDescription(), "File Iterator [ Set ]");
  iterator.SetFileSetName("Other");
  iterator.SetFileSpec(WideString("D:\\*"));
  EXPECT_EQ(iterator.GetDescription(), "File Iterator [ Other ]");
  iterator.SetUseFileSet(false);
  EXPECT_EQ(iterator.GetDescription(), "File Iterator [ D:\\* ]");
  EXPECT_EQ(iterator.FileSetName(), "Other");
}

}  // namespace
