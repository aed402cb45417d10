#include "platform/FinderTesting.h"

namespace {

using namespace FileAttribute;  // NOLINT(google-build-using-namespace): masks read as sums of bits
using Names = std::vector<std::string>;
using PosixFinderTest = FinderTest;

TEST_F(PosixFinderTest, DrivesAreFolders) {
  folder.Write("Sub/One.tmp");
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  for (const std::string& spec : {std::string("Q:\\Sub\\*.tmp"), std::string("q:/SUB\\\\*.tmp"),
                                  std::string("Q:sub\\*.tmp"), "Z:" + Path("Sub\\*.tmp")}) {
    EXPECT_EQ(Find(spec), Names{"One.tmp"}) << spec;
  }
  EXPECT_EQ(CodeOf("W:\\*"), Win32Error::PathNotFound);
  ASSERT_TRUE(environment.SetCurrentFolder("Q:\\sub"));
  EXPECT_EQ(Find("*.tmp"), Names{"One.tmp"});
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

TEST_F(PosixFinderTest, TheExactSpellingComesFirst) {
  folder.Write("Other");
  folder.Write("other");
  EXPECT_EQ(Find(Path("other")), Names{"other"});
  EXPECT_EQ(Find(Path("Other")), Names{"Other"});
}

TEST_F(PosixFinderTest, ALinkIsWhatItLeadsTo) {
  folder.Write("target", "123");
  folder.MakeFolder("place");
  MakeLink("target", Path("toFile"));
  MakeLink(Path("place"), Path("toFolder"));
  MakeLink("nowhere", Path("toNothing"));
  EXPECT_EQ(Find(Path("to*")), (Names{"toFile", "toNothing"}));
  const auto entries = Entries(Path("to*"), Directory);
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0].attributes, ReparsePoint);
  EXPECT_EQ(entries[0].size, 3u);
  EXPECT_EQ(entries[1].attributes, ReparsePoint | Directory);
  EXPECT_EQ(entries[2].attributes, ReparsePoint);
}

TEST_F(PosixFinderTest, NamesThatAreNotUtf8PassThrough) {
  const std::string name = "bad\xFF\xC3name.tmp";
  folder.Write(name, "x");
  ASSERT_EQ(Find(Path("BAD*.TMP")), Names{name});
  EXPECT_TRUE(entries.Delete(Path(name)));
  EXPECT_FALSE(entries.EntryExists(Path(name)));
}

TEST_F(PosixFinderTest, NamesThatMeanSomethingElseInAPathAreShownOtherwise) {
  const std::string back = "\xEF\x81\x9C", star = "\xEF\x80\xAA", mark = "\xEF\x80\xBF";
  folder.Write("keep");
  folder.Write("sub/a.tmp", "kept");
  folder.Write("sub/*.tmp", "star");
  folder.Write("sub/..\\keep", "back");
  folder.Write("sub/q?", "mark");
  folder.Write("sub/x" + star, "own");
  folder.Write("sub/x*", "other");
  EXPECT_EQ(Find(Path("sub/*.*")),
            (Names{".." + back + "keep", "a.tmp", "q" + mark, "x" + star, "x" + star, star + ".tmp"}));
  EXPECT_EQ(Find(Path("sub/*.TMP")), (Names{"a.tmp", star + ".tmp"}));
  EXPECT_EQ(Find(Path("sub/Q" + mark)), Names{"q" + mark});

  std::string contents;
  EXPECT_TRUE(data.ReadWhole(Path("sub\\X" + star), contents));
  EXPECT_EQ(contents, "own");
  EXPECT_EQ(environment.NativePath(Path("sub/" + star + ".TMP")), Path("sub/*.tmp"));
  EXPECT_EQ(environment.NativePath("new" + back + "one"), "new\\one");

  ASSERT_TRUE(folders.Create(Path("out" + star)));
  EXPECT_TRUE(entries.Copy(Path("sub/" + star + ".tmp"), Path("out" + star + "/" + star + ".tmp"), {}));
  EXPECT_TRUE(entries.Move(Path("sub/.." + back + "keep"), Path("out" + star + "/" + back), 0));
  EXPECT_TRUE(data.Replace(Path("out" + star + "/" + mark), "new"));
  EXPECT_EQ(folder.Names("out*"), (Names{"*.tmp", "?", "\\"}));
  EXPECT_TRUE(entries.Delete(Path("sub/" + star + ".tmp")));
  EXPECT_EQ(folder.Names("sub"), (Names{"a.tmp", "q?", "x*", "x" + star}));

  ASSERT_TRUE(environment.SetCurrentFolder(Path("out" + star)));
  EXPECT_EQ(environment.CurrentFolder(), Path("out" + star));
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

TEST_F(PosixFinderTest, LeavesOutNamesThatAPathWouldTakeForADrive) {
  folder.Write("sub/q:keep");
  EXPECT_EQ(Find(Path("sub\\*")), Names{"q:keep"});
  ASSERT_TRUE(environment.SetCurrentFolder(Path("sub")));
  EXPECT_EQ(Find("*"), Names{});
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

}  // namespace
