#include "platform/PlatformTest.h"

namespace {

using PosixFilesTest = PlatformTest;

TEST_F(PosixFilesTest, ADanglingLinkIsAFile) {
  MakeLink("nowhere", Path("dangling"));
  EXPECT_TRUE(entries.FileExists(Path("dangling")));
  EXPECT_TRUE(entries.EntryExists(Path("dangling")));
  EXPECT_FALSE(folders.Exists(Path("dangling")));
}

TEST_F(PosixFilesTest, DrivesAreFolders) {
  folder.Write("Sub/File.txt");
  for (const std::string& path : {std::string("Q:\\"), std::string("Q:sub"), "Z:" + Path("Sub")}) {
    EXPECT_TRUE(folders.Exists(path)) << path;
  }
  EXPECT_TRUE(entries.EntryExists("Q:\\"));
  EXPECT_TRUE(entries.EntryExists("Z:" + Path("Sub")));
  EXPECT_TRUE(folders.Create("Q:\\SUB\\Inner\\"));
  EXPECT_TRUE(data.Replace("Q:\\sub\\new.txt", "x") && data.Replace("Q:\\sub\\NEW.txt", "y"));
  EXPECT_EQ(folder.Names("Sub"), (std::vector<std::string>{"File.txt", "Inner", "new.txt"}));
}

TEST_F(PosixFilesTest, ADriveThatIsNotMappedIsAMissingPath) {
  EXPECT_FALSE(folders.Exists("W:\\"));
  EXPECT_FALSE(entries.EntryExists("W:\\"));
  EXPECT_EQ(entries.Delete("W:\\x").code, Win32Error::PathNotFound);
  EXPECT_EQ(folders.CreateWithParents("W:\\a\\b").code, Win32Error::PathNotFound);
}

TEST_F(PosixFilesTest, DeletingTakesTheExactSpellingFirst) {
  folder.Write("a.txt");
  folder.Write("A.TXT");
  EXPECT_TRUE(entries.Delete(Path("a.txt")));
  EXPECT_FALSE(entries.EntryExists(Path("a.txt")));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"A.TXT"});
  EXPECT_TRUE(entries.Delete(Path("a.txt")));
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(PosixFilesTest, DeletingALinkLeavesWhatItLeadsTo) {
  folder.Write("target", "kept");
  SetMode(Path("target"), 0444);
  folder.MakeFolder("place");
  MakeLink("target", Path("a"));
  MakeLink("place", Path("b"));
  EXPECT_FALSE(entries.SetAttributes(Path("a"), FileAttribute::Normal));
  EXPECT_TRUE(entries.Delete(Path("a")));
  EXPECT_TRUE(entries.Delete(Path("b")));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"place", "target"}));
  EXPECT_EQ(ModeOf(Path("target")), 0444u);
}

}  // namespace
