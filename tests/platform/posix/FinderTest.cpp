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

TEST_F(PosixFinderTest, LeavesOutNamesThatAPathWouldTakeForAnother) {
  folder.Write("keep");
  folder.Write("sub/..\\keep");
  folder.Write("sub/q:keep");
  EXPECT_EQ(Find(Path("sub\\*")), Names{"q:keep"});
  ASSERT_TRUE(environment.SetCurrentFolder(Path("sub")));
  EXPECT_EQ(Find("*"), Names{});
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

}  // namespace
