#include "platform/PlatformTest.h"

namespace {

using Names = std::vector<std::string>;

TEST_F(PlatformTest, ReadWholeGivesEveryByte) {
  const std::string big(300000, 'x');
  for (const std::string& text : {std::string(), std::string("a\r\n\0\xFF", 5), big}) {
    folder.Write("File", text);
    std::string contents = "old";
    ASSERT_TRUE(files.ReadWhole(Path("FILE"), contents));
    EXPECT_EQ(contents, text);
  }
  std::string contents;
  EXPECT_EQ(files.ReadWhole(Path("missing"), contents).code, Win32Error::FileNotFound);
  EXPECT_EQ(files.ReadWhole(Path("missing/x"), contents).code, Win32Error::PathNotFound);
  EXPECT_EQ(files.ReadWhole(folder.Path(), contents).code, Win32Error::AccessDenied);
}

TEST_F(PlatformTest, ReadWholeReadsFilesThatTellNoSize) {
  std::string contents;
  if (!files.FileExists("/proc/self/smaps")) GTEST_SKIP() << "no such file here";
  ASSERT_TRUE(files.ReadWhole("/proc/self/smaps", contents));
  EXPECT_GT(contents.size(), 10000u);
  EXPECT_EQ(contents.back(), '\n');
}

TEST_F(PlatformTest, ReplaceWritesNewAndOldFiles) {
  EXPECT_TRUE(files.Replace(Path("New.txt"), "one"));
  EXPECT_TRUE(files.Replace(Path("NEW.TXT"), "two"));
  EXPECT_TRUE(files.Replace("Q:\\new.txt", ""));
  EXPECT_TRUE(files.Replace("Q:\\new.txt", "three"));
  EXPECT_EQ(folder.Names(), Names{"New.txt"});
  EXPECT_EQ(folder.Read("New.txt"), "three");
  EXPECT_EQ(files.Replace(Path("missing/x"), "").code, Win32Error::PathNotFound);
}

TEST_F(PlatformTest, ReplaceKeepsModeAndAttributes) {
  folder.Write("file", "old");
  SetMode(Path("file"), 0640);
  const bool stores = StoreRawAttributes(Path("file"), "0x22");
  EXPECT_TRUE(files.Replace(Path("file"), "new"));
  EXPECT_EQ(ModeOf(Path("file")), 0640u);
  EXPECT_EQ(RawAttributes(Path("file")), stores ? std::optional<std::string>("0x22") : std::nullopt);
}

TEST_F(PlatformTest, ReplaceFollowsLinks) {
  folder.Write("place/target", "old");
  MakeLink("place", Path("folder"));
  MakeLink("folder/target", Path("relative"));
  MakeLink(Path("relative"), Path("absolute"));
  MakeLink("place/fresh", Path("dangling"));
  MakeLink("circle", Path("circle"));
  EXPECT_TRUE(files.Replace(Path("absolute"), "new"));
  EXPECT_TRUE(files.Replace(Path("dangling"), "fresh"));
  EXPECT_EQ(folder.Read("place/target"), "new");
  EXPECT_EQ(folder.Read("place/fresh"), "fresh");
  EXPECT_EQ(folder.Names("place"), (Names{"fresh", "target"}));
  EXPECT_EQ(files.Replace(Path("circle"), "x").code, Win32Error::CantResolveFilename);
}

TEST_F(PlatformTest, ReplaceRefusesAndLeavesEverythingAsItWas) {
  folder.Write("locked", "kept");
  SetMode(Path("locked"), 0444);
  folder.MakeFolder("folder");
  EXPECT_EQ(files.Replace(Path("locked"), "x").code, Win32Error::AccessDenied);
  EXPECT_EQ(files.Replace(Path("folder"), "x").code, Win32Error::AccessDenied);
  EXPECT_EQ(folder.Read("locked"), "kept");
  EXPECT_EQ(folder.Names(), (Names{"folder", "locked"}));
}

TEST_F(PlatformTest, AFullDiskLeavesTheOldFile) {
  folder.Write("file", "old");
  const std::string big(100000, 'x');
  SysResult replaced, created;
  WithFileSizeLimit(5000, [&] {
    replaced = files.Replace(Path("file"), big);
    created = files.Replace(Path("new"), big);
  });
  EXPECT_EQ(replaced.code, Win32Error::DiskFull);
  EXPECT_EQ(created.code, Win32Error::DiskFull);
  EXPECT_EQ(folder.Read("file"), "old");
  EXPECT_EQ(folder.Names(), Names{"file"});
}

TEST_F(PlatformTest, AFileThatIsHeldExclusivelyIsLeftAlone) {
  folder.Write("file", "held");
  std::string contents;
  {
    const ExclusiveOpen other(Path("file"));
    EXPECT_EQ(files.ReadWhole(Path("file"), contents).code, Win32Error::SharingViolation);
    EXPECT_EQ(files.Replace(Path("file"), "x").code, Win32Error::SharingViolation);
    EXPECT_EQ(folder.Names(), Names{"file"});
  }
  EXPECT_TRUE(files.Replace(Path("file"), "x"));
  EXPECT_TRUE(files.ReadWhole(Path("file"), contents));
  EXPECT_EQ(contents, "x");
}

}  // namespace
