#include <filesystem>

#include "platform/PlatformTest.h"

namespace {

using namespace FileAttribute;  // NOLINT(google-build-using-namespace): attributes read as sums of bits
using Names = std::vector<std::string>;

class CopyTest : public PlatformTest {
 protected:
  SysResult Copy(std::string_view source, std::string_view target, const CopyOptions& options = {}) {
    return entries.Copy(Path(source), Path(target), options);
  }

  Win32Error CodeOf(std::string_view source, std::string_view target, const CopyOptions& options = {}) {
    const SysResult copied = Copy(source, target, options);
    EXPECT_FALSE(copied.ok) << source << " -> " << target;
    return copied.code;
  }

  double LastWrite(std::string_view name) {
    SysResult result;
    FoundEntry entry;
    EXPECT_TRUE(finder.Open(Path(name), AnyFile, result)->Next(entry)) << name;
    return entry.lastWrite;
  }

  void MakeOld(std::string_view name) const {
    const std::filesystem::path path = Path(name);
    last_write_time(path, last_write_time(path) - std::chrono::hours(1000));
  }
};

/// Not the same block twice.
std::string Bytes(size_t size) {
  std::string bytes(size, 0);
  uint32_t state = 1;
  for (char& c : bytes) c = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
  return bytes;
}

TEST_F(CopyTest, GivesEveryByteAndTheTimeOfTheLastWrite) {
  folder.Write("Existing", std::string(100000, 'o'));
  for (const size_t size : {0u, 1u, 65536u, 65537u, (1u << 20), (17u << 20) + 3}) {
    const std::string bytes = Bytes(size);
    folder.Write("Source", bytes);
    MakeOld("Source");
    for (const std::string& target : {"new" + std::to_string(size), std::string("EXISTING")}) {
      ASSERT_TRUE(Copy("SOURCE", target)) << target;
      EXPECT_TRUE(folder.Read(target == "EXISTING" ? "Existing" : target) == bytes) << target << " " << size;
      EXPECT_EQ(LastWrite(target), LastWrite("Source")) << target;
    }
  }
  EXPECT_EQ(folder.Names().size(), 8u);
}

TEST_F(CopyTest, KeepsAttributes) {
  if (!StoresAttributes(folder.Path())) GTEST_SKIP() << "this file system stores no attributes";
  folder.Write("file", "x");
  int number = 0;
  for (const uint32_t attributes :
       {Normal, uint32_t{Hidden}, System | Hidden, uint32_t{ReadOnly}, ReadOnly | Hidden}) {
    if (WineLimits::FixedAttributes() && attributes == (ReadOnly | Hidden)) continue;
    const std::string target = "copy" + std::to_string(++number);
    ASSERT_TRUE(entries.SetAttributes(Path("file"), attributes));
    EXPECT_TRUE(Copy("file", target));
    EXPECT_EQ(AttributesOf(target), attributes);
    folder.Write("over" + target);
    EXPECT_TRUE(Copy("file", "over" + target));
    EXPECT_EQ(AttributesOf("over" + target), attributes);
  }
}

TEST_F(CopyTest, WhatASearchFoundIsCopiedWithItsAttributes) {
  if (!StoresAttributes(folder.Path())) GTEST_SKIP() << "this file system stores no attributes";
  folder.Write("file", "x");
  folder.MakeFolder("to");
  ASSERT_TRUE(entries.SetAttributes(Path("file"), Hidden));
  SysResult result;
  FoundEntry entry;
  ASSERT_TRUE(finder.Open(Path("f*"), Hidden, result)->Next(entry));
  EXPECT_TRUE(Copy("file", "to/file"));
  EXPECT_EQ(AttributesOf("to/file"), Hidden);
}

TEST_F(CopyTest, RefusesAndLeavesEverythingAsItWas) {
  folder.Write("File", "source");
  folder.Write("Other.txt", "kept");
  folder.Write("locked", "kept");
  SetMode(Path("locked"), 0444);
  folder.MakeFolder("folder");
  std::filesystem::create_hard_link(Path("File"), Path("twin"));
  const struct {
    std::string source, target;
    bool failIfExists;
    Win32Error code;
  } cases[] = {
      {"missing", "File/x", false, Win32Error::FileNotFound},
      {"File", "Other.txt/x", false, Win32Error::PathNotFound},
      {"File", "File", false, Win32Error::SharingViolation},
      {"FILE", "fILE", false, Win32Error::SharingViolation},
      {"File", "twin", false, Win32Error::SharingViolation},
      {"File", "Other.txt", true, Win32Error::FileExists},
      {"File", "OTHER.TXT", true, Win32Error::FileExists},
      {"File", "locked", true, Win32Error::FileExists},
      {"File", "File", true, Win32Error::FileExists},
      {"File", std::string(300, 'x'), false, Win32Error::FilenameExcedRange},
      {"File", "folder/", false, Win32Error::AccessDenied},
      {"File", "FOLDER\\", true, Win32Error::AccessDenied},
      {"File", "Other.txt/", false, Win32Error::PathNotFound},
      {"File", "new\\", false, Win32Error::PathNotFound},
      {"File/", "new", false, Win32Error::PathNotFound},
      {"folder\\", "new", false, Win32Error::AccessDenied},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CodeOf(c.source, c.target, {.failIfExists = c.failIfExists}), c.code)
        << c.source << " -> " << c.target;
  }
  EXPECT_EQ(folder.Names(), (Names{"File", "Other.txt", "folder", "locked", "twin"}));
  EXPECT_EQ(folder.Read("File") + folder.Read("Other.txt") + folder.Read("locked"), "sourcekeptkept");
}

TEST_F(CopyTest, HiddenAndSystemTargetsTakeOnlyTheirLike) {
  if (!StoresAttributes(folder.Path())) GTEST_SKIP() << "this file system stores no attributes";
  folder.Write("source", "new");
  const struct {
    uint32_t source, target;
    bool copies;
  } cases[] = {
      {Normal, Hidden, false},         {Normal, System, false}, {Hidden, Hidden | System, false},
      {Hidden | System, Hidden, true}, {Hidden, Hidden, true},  {Hidden | System, Normal, true},
  };
  for (const auto& c : cases) {
    folder.Write("target", "old");
    ASSERT_TRUE(entries.SetAttributes(Path("source"), c.source));
    ASSERT_TRUE(entries.SetAttributes(Path("target"), c.target));
    EXPECT_EQ(Copy("source", "target").code, c.copies ? Win32Error::Success : Win32Error::AccessDenied);
    EXPECT_EQ(folder.Read("target"), c.copies ? "new" : "old") << c.source << " " << c.target;
    ASSERT_TRUE(entries.SetAttributes(Path("target"), Normal) && entries.Delete(Path("target")));
  }
}

TEST_F(CopyTest, TheTargetKeepsItsSpelling) {
  folder.Write("source.txt", "new");
  folder.Write("TARGET.TXT", "old");
  EXPECT_TRUE(Copy("Source.txt", "target.txt"));
  EXPECT_EQ(folder.Names(), (Names{"TARGET.TXT", "source.txt"}));
  EXPECT_EQ(folder.Read("TARGET.TXT"), "new");
}

TEST_F(CopyTest, ACancelledCopyLeavesNothing) {
  folder.Write("big", Bytes(20u << 20));
  folder.Write("target", "old");
  std::atomic<bool> cancel = true;
  CopyOptions options = {.cancel = &cancel};
  EXPECT_EQ(CodeOf("big", "new", options), Win32Error::RequestAborted);
  EXPECT_EQ(CodeOf("big", "target", options), Win32Error::RequestAborted);
  if (!WineLimits::NoCopyProgress()) {
    uint64_t copied = 0;
    options.progress = [&](uint64_t transferred, uint64_t) { cancel = (copied = transferred) > 0; };
    for (const char* target : {"new", "target"}) {
      cancel = false;
      EXPECT_EQ(CodeOf("big", target, options), Win32Error::RequestAborted);
      EXPECT_LT(copied, 20u << 20) << "not in the middle";
    }
  }
  EXPECT_EQ(folder.Names(), (Names{"big", "target"}));
  EXPECT_EQ(folder.Read("target"), "old");
}

TEST_F(CopyTest, ProgressGoesUpToTheWhole) {
  for (const uint64_t size : {uint64_t{0}, uint64_t{10}, uint64_t{20} << 20}) {
    folder.Write("source", std::string(static_cast<size_t>(size), 'x'));
    std::vector<uint64_t> told;
    const auto progress = [&](uint64_t transferred, uint64_t total) {
      EXPECT_EQ(total, size);
      told.push_back(transferred);
    };
    ASSERT_TRUE(Copy("source", "target", {.progress = progress}));
    ASSERT_FALSE(told.empty());
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), size);
    EXPECT_TRUE(told.size() > 2 || size < 100 || WineLimits::NoCopyProgress());
  }
}

TEST_F(CopyTest, LinksAreFollowedOnBothSides) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.Write("place/file", "text");
  folder.Write("place/target", "old");
  MakeLink(Path("place/file"), Path("source"));
  MakeLink(Path("place/target"), Path("link"));
  EXPECT_EQ(CodeOf("source", "place/file"), Win32Error::SharingViolation);
  EXPECT_EQ(CodeOf("place/file", "source"), Win32Error::SharingViolation);
  EXPECT_TRUE(Copy("source", "link"));
  EXPECT_EQ(folder.Read("place/target"), "text");
  EXPECT_NE(AttributesOf("link") & ReparsePoint, 0u);
  EXPECT_TRUE(Copy("source", "new"));
  EXPECT_EQ(AttributesOf("new") & ReparsePoint, 0u);
}

}  // namespace
