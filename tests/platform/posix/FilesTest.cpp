#include "platform/PlatformTest.h"

namespace {

using PosixFilesTest = PlatformTest;

TEST_F(PosixFilesTest, ADanglingLinkIsAFile) {
  MakeLink("nowhere", Path("dangling"));
  EXPECT_TRUE(files.FileExists(Path("dangling")));
  EXPECT_TRUE(files.EntryExists(Path("dangling")));
  EXPECT_FALSE(files.FolderExists(Path("dangling")));
}

TEST_F(PosixFilesTest, DrivesAreFolders) {
  folder.Write("Sub/File.txt");
  for (const std::string& path : {std::string("Q:\\"), std::string("Q:sub"), "Z:" + Path("Sub")}) {
    EXPECT_TRUE(files.FolderExists(path)) << path;
  }
  EXPECT_TRUE(files.EntryExists("Q:\\"));
  EXPECT_TRUE(files.EntryExists("Z:" + Path("Sub")));
  EXPECT_TRUE(files.CreateFolder("Q:\\SUB\\Inner\\"));
  EXPECT_TRUE(files.Replace("Q:\\sub\\new.txt", "x") && files.Replace("Q:\\sub\\NEW.txt", "y"));
  EXPECT_EQ(folder.Names("Sub"), (std::vector<std::string>{"File.txt", "Inner", "new.txt"}));
}

TEST_F(PosixFilesTest, ADriveThatIsNotMappedIsAMissingPath) {
  EXPECT_FALSE(files.FolderExists("W:\\"));
  EXPECT_FALSE(files.EntryExists("W:\\"));
  EXPECT_EQ(files.Delete("W:\\x").code, Win32Error::PathNotFound);
  EXPECT_EQ(files.CreateFolders("W:\\a\\b").code, Win32Error::PathNotFound);
}

TEST_F(PosixFilesTest, DeletingTakesTheExactSpellingFirst) {
  folder.Write("a.txt");
  folder.Write("A.TXT");
  EXPECT_TRUE(files.Delete(Path("a.txt")));
  EXPECT_FALSE(files.EntryExists(Path("a.txt")));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"A.TXT"});
  EXPECT_TRUE(files.Delete(Path("a.txt")));
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(PosixFilesTest, DeletingALinkLeavesWhatItLeadsTo) {
  folder.Write("target", "kept");
  SetMode(Path("target"), 0444);
  folder.MakeFolder("place");
  MakeLink("target", Path("a"));
  MakeLink("place", Path("b"));
  EXPECT_FALSE(files.SetAttributes(Path("a"), FileAttribute::Normal));
  EXPECT_TRUE(files.Delete(Path("a")));
  EXPECT_TRUE(files.Delete(Path("b")));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"place", "target"}));
  EXPECT_EQ(ModeOf(Path("target")), 0444u);
}

}  // namespace
