#include <csignal>
#include <filesystem>
#include <fstream>
#include <tuple>

#include "platform/PlatformTest.h"

namespace {

using Names = std::vector<std::string>;
using PosixCopyTest = PlatformTest;

TEST_F(PosixCopyTest, AFullDiskLeavesTheOldFileOrNone) {
  folder.Write("small", std::string(10000, 'x'));
  folder.Write("large", std::string(3u << 20, 'x'));
  folder.Write("target", "old");
  for (const char* source : {"small", "large"}) {
    SysResult over, created;
    WithFileSizeLimit(5000, [&] {
      over = entries.Copy(Path(source), Path("target"), {});
      created = entries.Copy(Path(source), Path("new"), {});
    });
    EXPECT_EQ(over.code, Win32Error::DiskFull) << source;
    EXPECT_EQ(created.code, Win32Error::DiskFull) << source;
  }
  EXPECT_EQ(folder.Read("target"), "old");
  EXPECT_EQ(folder.Names(), (Names{"large", "small", "target"}));
}

TEST_F(PosixCopyTest, WhoIsKilledLeavesNoPartOfAFile) {
  folder.Write("small", "x");
  folder.Write("large", std::string(20u << 20, 'x'));
  folder.Write("old", "kept");
  const CopyOptions options = {.progress = [](uint64_t, uint64_t) { raise(SIGKILL); }};
  for (const char* source : {"small", "large"}) {
    for (const char* target : {"new", "old"}) {
      EXPECT_EXIT(entries.Copy(Path(source), Path(target), options), testing::KilledBySignal(SIGKILL), "");
      EXPECT_FALSE(folder.Exists("new"));
      EXPECT_EQ(folder.Read("old"), "kept");
    }
  }
}

TEST_F(PosixCopyTest, FilesWhoseNamesDifferInCaseOnlyAllArrive) {
  for (const bool moves : {false, true}) {
    for (const char* name : {"MAKE", "Make", "make", "other"}) folder.Write(std::string("in/") + name, name);
    folder.Write("out/mAKE", "replaced");
    for (const char* name : {"MAKE", "Make", "make", "make", "other"}) {
      const std::string source = Path(std::string("in/") + name), target = Path(std::string("out/") + name);
      if (!entries.EntryExists(source)) continue;  // moved
      const bool exists = entries.TargetExists(source, target);
      EXPECT_EQ(exists, name == std::string("MAKE") || entries.EntryExists(target)) << name;
      EXPECT_TRUE(moves ? entries.Move(source, target, MoveFlag::ReplaceExisting)
                        : entries.Copy(source, target, {}));
    }
    EXPECT_EQ(folder.Names("out"), (Names{"Make", "mAKE", "make", "other"}));
    EXPECT_EQ(folder.Read("out/mAKE"), "MAKE");
    EXPECT_EQ(folder.Read("out/make"), "make");
    std::filesystem::remove_all(Path("out"));
  }
}

TEST_F(PosixCopyTest, ALargeFileTakesNoNameThatAnotherTookMeanwhile) {
  const std::string bytes(3u << 20, 'x');
  folder.Write("source", bytes);
  CopyOptions options = {.progress = [&](uint64_t, uint64_t) { folder.Write("new", "other"); }};
  EXPECT_TRUE(entries.Copy(Path("source"), Path("new"), options));
  EXPECT_TRUE(folder.Read("new") == bytes);
  std::filesystem::remove(Path("new"));
  options.failIfExists = true;
  EXPECT_EQ(entries.Copy(Path("source"), Path("new"), options).code, Win32Error::FileExists);
  EXPECT_EQ(folder.Read("new"), "other");
  EXPECT_EQ(folder.Names(), (Names{"new", "source"}));
}

TEST_F(PosixCopyTest, PipesAreNeitherReadNorReplaced) {
  folder.Write("file", "x");
  MakePipe(Path("pipe"));
  EXPECT_EQ(entries.Copy(Path("pipe"), Path("new"), {}).code, Win32Error::NotSupported);
  EXPECT_EQ(entries.Copy(Path("file"), Path("pipe"), {}).code, Win32Error::NotSupported);
  EXPECT_EQ(entries.Copy("/dev/zero", Path("new"), {}).code, Win32Error::NotSupported);
  EXPECT_EQ(folder.Names(), (Names{"file", "pipe"}));
}

TEST_F(PosixCopyTest, FoldersThatDifferInCaseOnlyStayApart) {
  for (const char* name : {"in/Sub/Deep", "in/Sub/deep", "in/sub/Deep", "in/only"}) folder.MakeFolder(name);
  const struct {
    const char *source, *target, *made;
  } cases[] = {
      {"in/Sub/Deep", "out/Sub/Deep", "out/Sub/Deep"},
      {"in/Sub/deep", "out/Sub/deep", "out/Sub/deep"},
      {"in/sub/Deep", "out/sub/Deep", "out/sub/Deep"},
      {"in/only", "OUT/only", "out/only"},
      {"in/only", "out/SUB", "out/Sub"},  // of another name, and so the folder that is there
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(folders.CreateWithParents(Path(c.target), Path(c.source)));
    EXPECT_TRUE(folder.Exists(c.made)) << c.made;
    EXPECT_EQ(folder.Exists(c.target), std::string_view(c.target) == c.made) << c.target;
  }
}

TEST_F(PosixCopyTest, FilesThatTellNoSizeAreCopiedWhole) {
  if (!entries.FileExists("/proc/self/status")) GTEST_SKIP() << "no such file here";
  EXPECT_TRUE(entries.Copy("/proc/self/status", Path("copy"), {}));
  EXPECT_EQ(folder.Read("copy").substr(0, 5), "Name:");
}

TEST_F(PosixCopyTest, ANewFileHasTheSourcesModeAnOldOneItsOwn) {
  const struct {
    uint32_t source, old, made, over;
  } cases[] = {
      {0755, 0640, 0755, 0640},
      {0644, 0755, 0644, 0755},
      {0555, 0640, 0555, 0440},
      {0400, 0600, 0400, 0400},
  };
  for (const auto& c : cases) {
    folder.Write("source", "x");
    SetMode(Path("source"), c.source);
    folder.Write("old");
    SetMode(Path("old"), c.old);
    for (const char* target : {"new", "old"}) EXPECT_TRUE(entries.Copy(Path("source"), Path(target), {}));
    EXPECT_EQ(ModeOf(Path("new")), c.made);
    EXPECT_EQ(ModeOf(Path("old")), c.over);
    for (const char* name : {"source", "new", "old"}) std::filesystem::remove(Path(name));
  }
}

TEST_F(PosixCopyTest, ALeadingDotIsNoAttributeThatIsLost) {
  if (!StoresAttributes(folder.Path())) GTEST_SKIP() << "this file system stores no attributes";
  folder.Write(".dot");
  folder.Write("plain");
  for (const auto& [source, target, raw] : std::vector<std::tuple<std::string, std::string, std::string>>{
           {".dot", "a", "0x2"}, {".dot", ".b", ""}, {"plain", ".c", "0x0"}, {"plain", "d", ""}}) {
    ASSERT_TRUE(entries.Copy(Path(source), Path(target), {}));
    EXPECT_EQ(AttributesOf(target), AttributesOf(source)) << target;
    EXPECT_EQ(RawAttributes(Path(target)).value_or(""), raw) << target;
  }
  SetMode(Path(".dot"), 0444);
  ASSERT_TRUE(entries.Copy(Path(".dot"), Path("locked"), {}));
  EXPECT_EQ(AttributesOf("locked"), FileAttribute::Hidden | FileAttribute::ReadOnly);
}

TEST_F(PosixCopyTest, HolesStayHoles) {
  constexpr uint64_t kSize = uint64_t{64} << 20;
  for (const std::string text : {"start", ""}) {
    folder.Write("sparse", text);
    std::filesystem::resize_file(Path("sparse"), kSize / 2);
    std::ofstream(Path("sparse"), std::ios::binary | std::ios::app) << "middle";
    std::filesystem::resize_file(Path("sparse"), kSize + text.size());
    if (BytesOnDisk(Path("sparse")) > kSize / 2) GTEST_SKIP() << "this file system has no holes";
    ASSERT_TRUE(entries.Copy(Path("sparse"), Path("copy"), {}));
    EXPECT_LT(BytesOnDisk(Path("copy")), kSize / 2);
    EXPECT_TRUE(folder.Read("copy") == folder.Read("sparse"));
  }
}

TEST_F(PosixCopyTest, TheExactSpellingIsTheTarget) {
  folder.Write("source", "new");
  folder.Write("a.txt", "old");
  folder.Write("A.TXT", "other");
  EXPECT_FALSE(entries.FileExists(Path("missing")));
  EXPECT_TRUE(entries.Copy(Path("source"), Path("a.txt"), {}));
  EXPECT_EQ(folder.Read("a.txt") + folder.Read("A.TXT"), "newother");
}

TEST_F(PosixCopyTest, ALinkThatLeadsNowhereIsFilled) {
  folder.Write("source", "text");
  folder.MakeFolder("place");
  MakeLink("way", Path("link"));
  MakeLink("place/new", Path("way"));
  MakeLink("circle", Path("circle"));
  MakeLink("nowhere/x", Path("broken"));
  EXPECT_EQ(entries.Copy(Path("link"), Path("new"), {}).code, Win32Error::FileNotFound);
  EXPECT_EQ(entries.Copy(Path("source"), Path("link"), {.failIfExists = true}).code, Win32Error::FileExists);
  EXPECT_TRUE(entries.Copy(Path("source"), Path("link"), {}));
  EXPECT_EQ(folder.Read("place/new"), "text");
  EXPECT_EQ(entries.Copy(Path("source"), Path("circle"), {}).code, Win32Error::CantResolveFilename);
  EXPECT_EQ(entries.Copy(Path("source"), Path("broken"), {}).code, Win32Error::PathNotFound);
}

TEST_F(PosixCopyTest, WhatASearchSawOfATargetDoesNotOutliveTheCopy) {
  folder.Write("target");
  folder.Write("z-source", "x");
  SetMode(Path("z-source"), 0444);
  SysResult result;
  FoundEntry entry;
  ASSERT_TRUE(finder.Open(Path("t*"), 0, result)->Next(entry));
  EXPECT_TRUE(entries.Copy(Path("z-source"), Path("target"), {}));
  EXPECT_EQ(entries.Delete(Path("target")).code, Win32Error::AccessDenied);
}

}  // namespace
