#include "platform/PlatformTest.h"

namespace {

using Names = std::vector<std::string>;
using PosixContentsTest = PlatformTest;

TEST_F(PosixContentsTest, ReadWholeReadsFilesThatTellNoSize) {
  std::string contents;
  if (!entries.FileExists("/proc/self/smaps")) GTEST_SKIP() << "no such file here";
  ASSERT_TRUE(data.ReadWhole("/proc/self/smaps", contents));
  EXPECT_GT(contents.size(), 10000u);
  EXPECT_EQ(contents.back(), '\n');
}

TEST_F(PosixContentsTest, ReplaceKeepsModeAndAttributes) {
  folder.Write("file", "old");
  SetMode(Path("file"), 0640);
  const bool stores = StoreRawAttributes(Path("file"), "0x22");
  const auto expectKept = [&](const char* text) {
    EXPECT_EQ(folder.Read("file"), text);
    EXPECT_EQ(ModeOf(Path("file")), 0640u);
    EXPECT_EQ(RawAttributes(Path("file")), stores ? std::optional<std::string>("0x22") : std::nullopt);
  };
  EXPECT_TRUE(data.Replace(Path("file"), "new"));
  expectKept("new");

  std::unique_ptr<NewContents> contents;
  ASSERT_TRUE(data.Rewrite(Path("file"), contents));
  EXPECT_TRUE(contents->File().Write("newer"));
  EXPECT_TRUE(contents->Commit());
  expectKept("newer");
}

TEST_F(PosixContentsTest, ReplaceFollowsLinks) {
  folder.Write("place/target", "old");
  MakeLink("place", Path("folder"));
  MakeLink("folder/target", Path("relative"));
  MakeLink(Path("relative"), Path("absolute"));
  MakeLink("place/fresh", Path("dangling"));
  MakeLink("circle", Path("circle"));
  EXPECT_TRUE(data.Replace(Path("absolute"), "new"));
  EXPECT_TRUE(data.Replace(Path("dangling"), "fresh"));
  EXPECT_EQ(folder.Read("place/target"), "new");
  EXPECT_EQ(folder.Read("place/fresh"), "fresh");
  EXPECT_EQ(folder.Names("place"), (Names{"fresh", "target"}));
  EXPECT_EQ(data.Replace(Path("circle"), "x").code, Win32Error::CantResolveFilename);
}

TEST_F(PosixContentsTest, WhatIsNoFileIsRefused) {
  MakePipe(Path("pipe"));
  std::string contents;
  for (const std::string& path : {Path("pipe"), std::string("/dev/zero")}) {
    EXPECT_EQ(data.ReadWhole(path, contents).code, Win32Error::NotSupported) << path;
    EXPECT_EQ(data.Replace(path, "x").code, Win32Error::NotSupported) << path;
    EXPECT_EQ(data.Change(path, [](const std::string&, NewText&) { return true; }).code,
              Win32Error::NotSupported)
        << path;
  }
  EXPECT_TRUE(data.ReadStream("/dev/null", contents));
}

TEST_F(PosixContentsTest, WhatAKilledProgramLeftIsFoundByNoSearchAndGoes) {
  const std::string abandoned = ".vek-0123456789abcdef", held = ".vek-fedcba9876543210";
  const auto search = [&](const std::string& spec) {
    SysResult found;
    return finder.Open(Path(spec), FileAttribute::AnyFile, found), found.code;
  };
  for (const char* target : {"new", "new", "sub/new"}) {  // one to be made, to be changed, and elsewhere
    folder.Write(abandoned, "x");
    folder.Write(held, "x");
    EXPECT_EQ(search(".vek-*"), Win32Error::FileNotFound);
    EXPECT_EQ(search(abandoned), Win32Error::FileNotFound);
    const ExclusiveOpen other(Path(held));
    const auto fresh = CreatePlatform({});  // which knows of no folder yet
    folder.MakeFolder("sub");
    EXPECT_TRUE(fresh->Get().contents->Replace(Path(target), "x"));
    EXPECT_EQ(folder.Exists(abandoned), folder.Exists("sub/new"));
    EXPECT_TRUE(folder.Exists(held));
  }
  folder.Write("gone/" + abandoned, "x");
  EXPECT_TRUE(owner->Get().folders->Remove(Path("gone")));
}

TEST_F(PosixContentsTest, AFullDiskLeavesTheOldFile) {
  folder.Write("file", "old");
  const std::string big(100000, 'x');
  SysResult replaced, created;
  WithFileSizeLimit(5000, [&] {
    replaced = data.Replace(Path("file"), big);
    created = data.Replace(Path("new"), big);
  });
  EXPECT_EQ(replaced.code, Win32Error::DiskFull);
  EXPECT_EQ(created.code, Win32Error::DiskFull);
  EXPECT_EQ(folder.Read("file"), "old");
  EXPECT_EQ(folder.Names(), Names{"file"});
}

}  // namespace
