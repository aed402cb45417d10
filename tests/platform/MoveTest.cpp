#include <filesystem>

#include "base/WindowsPath.h"
#include "platform/PlatformTest.h"

namespace {

using namespace FileAttribute;  // NOLINT(google-build-using-namespace): attributes read as sums of bits
using namespace MoveFlag;       // NOLINT(google-build-using-namespace): and flags too
using Names = std::vector<std::string>;

class MoveTest : public PlatformTest {
 protected:
  SysResult Move(std::string_view source, std::string_view target, uint32_t flags = 0) {
    return entries.Move(Path(source), Path(target), flags);
  }
};

TEST_F(MoveTest, FilesAndFoldersGoWithAllTheyHold) {
  folder.Write("Folder/Sub/file", "text");
  folder.Write("locked", "read-only");
  SetMode(Path("locked"), 0444);
  EXPECT_TRUE(entries.FileExists(Path("Folder/Sub/file")));
  EXPECT_TRUE(Move("LOCKED", "folder/Moved"));
  EXPECT_TRUE(Move("Folder", "Between\\"));
  EXPECT_TRUE(Move("between/", "New"));
  EXPECT_FALSE(entries.FileExists(Path("Folder/Sub/file")));
  EXPECT_TRUE(entries.FileExists(Path("New/sub/FILE")));
  EXPECT_EQ(folder.Names(), Names{"New"});
  EXPECT_EQ(folder.Names("New"), (Names{"Moved", "Sub"}));
  EXPECT_NE(AttributesOf("New/Moved") & ReadOnly, 0u);
}

TEST_F(MoveTest, Refusals) {
  folder.Write("File", "source");
  folder.Write("other", "kept");
  folder.Write("locked", "kept");
  SetMode(Path("locked"), 0444);
  folder.MakeFolder("folder/sub");
  const struct {
    std::string source, target;
    uint32_t flags;
    Win32Error code;
  } cases[] = {
      {"missing", "new", 0, Win32Error::FileNotFound},
      {"missing/x", "new", 0, Win32Error::PathNotFound},
      {"File", "missing/x", 0, Win32Error::PathNotFound},
      {"File", "other/x", 0, Win32Error::PathNotFound},
      {"File", "other", 0, Win32Error::AlreadyExists},
      {"File", "OTHER", CopyAllowed | WriteThrough, Win32Error::AlreadyExists},
      {"File", "folder", 0, Win32Error::AlreadyExists},
      {"File", "locked", ReplaceExisting, Win32Error::AccessDenied},
      {"File", "LOCKED", ReplaceExisting, Win32Error::AccessDenied},
      {"File", "folder", ReplaceExisting, Win32Error::AccessDenied},
      {"folder", "File", ReplaceExisting, Win32Error::AccessDenied},
      {"folder/sub", "folder", ReplaceExisting, Win32Error::AccessDenied},
      {"folder", "folder/sub/x", 0, Win32Error::SharingViolation},
      {"File", std::string(300, 'x'), 0, Win32Error::FilenameExcedRange},
      {"File", "folder/", 0, Win32Error::AccessDenied},
      {"File", "FOLDER\\", ReplaceExisting, Win32Error::AccessDenied},
      {"File", "other/", ReplaceExisting, Win32Error::PathNotFound},
      {"File", "new\\", 0, Win32Error::PathNotFound},
      {"File/", "new", 0, Win32Error::PathNotFound},
  };
  for (const auto& c : cases) {
    const SysResult moved = Move(c.source, c.target, c.flags);
    EXPECT_FALSE(moved.ok) << c.source << " -> " << c.target;
    EXPECT_EQ(moved.code, c.code) << c.source << " -> " << c.target;
  }
  EXPECT_EQ(folder.Names(), (Names{"File", "folder", "locked", "other"}));
  EXPECT_EQ(folder.Names("folder"), Names{"sub"});
  EXPECT_EQ(folder.Read("File") + folder.Read("other") + folder.Read("locked"), "sourcekeptkept");
}

TEST_F(MoveTest, ReplacingKeepsTheTargetsSpellingOnly) {
  folder.Write("new", "new");
  folder.Write("Old", "old and longer");
  SetMode(Path("new"), 0444);
  EXPECT_TRUE(Move("new", "OLD", ReplaceExisting));
  EXPECT_EQ(folder.Names().size(), 1u);
  EXPECT_TRUE(entries.FileExists(Path("old")));
  EXPECT_EQ(AttributesOf("old") & ReadOnly, uint32_t{ReadOnly});
  std::string contents;
  EXPECT_TRUE(data.ReadWhole(Path("Old"), contents));
  EXPECT_EQ(contents, "new");
}

TEST_F(MoveTest, OntoItselfAndToOtherLetters) {
  folder.Write("file.txt", "text");
  folder.MakeFolder("folder");
  for (const uint32_t flags : {0u, uint32_t{ReplaceExisting}}) {
    EXPECT_TRUE(Move("file.txt", "file.txt", flags));
    EXPECT_TRUE(Move("folder", "folder", 0));
  }
  EXPECT_EQ(folder.Read("file.txt"), "text");
  if (WineLimits::NoRenameWithinOneFile()) GTEST_SKIP() << "Wine leaves the case of letters";
  EXPECT_TRUE(Move("file.txt", "FILE.txt"));
  EXPECT_TRUE(Move("file.TXT", "File.Txt", ReplaceExisting));
  EXPECT_TRUE(Move("folder", "Folder"));
  EXPECT_EQ(folder.Names(), (Names{"File.Txt", "Folder"}));
}

TEST_F(MoveTest, OfTwoNamesOfOneFileTheTargetStays) {
  if (WineLimits::NoRenameWithinOneFile()) GTEST_SKIP() << "Wine leaves both names";
  folder.Write("one", "text");
  std::filesystem::create_hard_link(Path("one"), Path("two"));
  EXPECT_EQ(Move("one", "two").code, Win32Error::AlreadyExists);
  EXPECT_TRUE(Move("one", "two", ReplaceExisting));
  EXPECT_EQ(folder.Names(), Names{"two"});
  EXPECT_EQ(folder.Read("two"), "text");
}

TEST_F(MoveTest, WhatIsHeldExclusivelyIsNeitherMovedNorReplaced) {
  folder.Write("Held", "held");
  folder.Write("free", "free");
  folder.MakeFolder("to");
  {
    const ExclusiveOpen other(Path("Held"));
    for (const char* target : {"new", "to/held"}) {
      EXPECT_EQ(Move("held", target).code, Win32Error::SharingViolation) << target;
    }
    EXPECT_EQ(Move("Held", "free", ReplaceExisting).code, Win32Error::SharingViolation);
    EXPECT_EQ(Move("free", "HELD", ReplaceExisting).code, Win32Error::SharingViolation);
  }
  EXPECT_EQ(folder.Names(), (Names{"Held", "free", "to"}));
  EXPECT_EQ(folder.Read("Held") + folder.Read("free"), "heldfree");
  EXPECT_TRUE(Move("free", "held", ReplaceExisting));
  EXPECT_TRUE(Move("held", "to/moved"));
}

TEST_F(MoveTest, NamesAreKnownWhereTheyWentTo) {
  folder.Write("a/One");
  folder.Write("b/Two");
  EXPECT_FALSE(entries.FileExists(Path("a/x")) || entries.FileExists(Path("b/x")));
  EXPECT_TRUE(Move("a/ONE", "b/Three"));
  EXPECT_FALSE(entries.FileExists(Path("a/one")));
  EXPECT_TRUE(entries.FileExists(Path("b/THREE")));
  EXPECT_TRUE(Move("b/three", "b/TWO", ReplaceExisting));
  EXPECT_TRUE(entries.Delete(Path("b/two")));
  EXPECT_FALSE(entries.FileExists(Path("b/two")) || entries.FileExists(Path("b/three")));
}

TEST_F(MoveTest, ALinkItselfIsMoved) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.Write("file", "kept");
  folder.Write("target", "old");
  folder.MakeFolder("place");
  MakeLink(Path("file"), Path("link"));
  MakeLink(Path("place"), Path("way"));
  EXPECT_TRUE(Move("link", "target", ReplaceExisting));
  EXPECT_TRUE(Move("way", "moved"));
  EXPECT_EQ(folder.Names(), (Names{"file", "moved", "place", "target"}));
  EXPECT_NE(AttributesOf("target") & AttributesOf("moved") & ReparsePoint, 0u);
  EXPECT_EQ(folder.Read("target"), "kept");
}

/// With a folder on another volume, where this machine has one that is known.
class MoveAcrossTest : public MoveTest {
 protected:
  void SetUp() override {
    for (const char* base : {"/dev/shm", "Z:/dev/shm"}) {
      if (!folders.Exists(base)) continue;
      other = std::string(base) + "/" + std::string(NamePart(folder.Path()));
      ASSERT_TRUE(folders.Create(other));
      folder.Write("probe");
      if (entries.Move(Path("probe"), Other("probe"), 0).code == Win32Error::NotSameDevice) return;
    }
    GTEST_SKIP() << "there is no second volume";
  }
  void TearDown() override { std::filesystem::remove_all(other); }

  std::string Other(std::string_view name) const { return other + "/" + std::string(name); }
  std::string ReadOther(std::string_view name) {
    std::string contents;
    EXPECT_TRUE(data.ReadWhole(Other(name), contents)) << name;
    return contents;
  }

  std::string other;
};

TEST_F(MoveAcrossTest, AFileIsCopiedAndDeleted) {
  const std::string bytes(3u << 20, 'x');
  folder.Write("file", bytes);
  const auto old = std::filesystem::last_write_time(Path("file")) - std::chrono::hours(1000);
  std::filesystem::last_write_time(Path("file"), old);
  const bool isLocked = !WineLimits::NoReadOnlyMoveAcross();
  if (isLocked) SetMode(Path("file"), 0444);
  uint64_t told = 0;
  const auto progress = [&](uint64_t transferred, uint64_t total) {
    told = transferred == total ? total : 0;
  };
  EXPECT_TRUE(entries.Move(Path("FILE"), Other("moved"), CopyAllowed | WriteThrough, progress));
  EXPECT_FALSE(folder.Exists("file"));
  EXPECT_TRUE(ReadOther("moved") == bytes);
  uint32_t attributes = 0;
  EXPECT_TRUE(entries.GetAttributes(Other("moved"), attributes));
  EXPECT_EQ((attributes & ReadOnly) != 0, isLocked);
  EXPECT_EQ(std::filesystem::last_write_time(Other("moved")), old);
  EXPECT_EQ(told, WineLimits::NoCopyProgress() ? 0 : bytes.size());
  EXPECT_TRUE(entries.SetAttributes(Other("moved"), Normal));
}

TEST_F(MoveAcrossTest, TheRulesForTargetsStand) {
  folder.Write("file", "new");
  folder.Write("folder/x");
  EXPECT_TRUE(data.Replace(Other("Old"), "old"));
  EXPECT_EQ(entries.Move(Path("file"), Other("new"), 0).code, Win32Error::NotSameDevice);
  EXPECT_EQ(entries.Move(Path("folder"), Other("new"), CopyAllowed).code, Win32Error::AccessDenied);
  EXPECT_EQ(entries.Move(Path("file"), Other("OLD"), CopyAllowed).code, Win32Error::AlreadyExists);
  SetMode(Other("Old"), 0444);
  EXPECT_EQ(entries.Move(Path("file"), Other("old"), CopyAllowed | ReplaceExisting).code,
            Win32Error::AccessDenied);
  EXPECT_EQ(ReadOther("Old"), "old");
  SetMode(Other("Old"), 0644);
  EXPECT_TRUE(entries.Move(Path("file"), Other("old"), CopyAllowed | ReplaceExisting));
  EXPECT_EQ(ReadOther("Old"), "new");
  EXPECT_EQ(folder.Names(), (Names{"folder", "probe"}));
  EXPECT_TRUE(entries.Delete(Other("OLD")));
  EXPECT_TRUE(folders.Remove(other));
}

TEST_F(MoveAcrossTest, WhatIsHeldExclusivelyStays) {
  folder.Write("file", "kept");
  {
    const ExclusiveOpen held(Path("file"));
    EXPECT_EQ(entries.Move(Path("file"), Other("file"), CopyAllowed).code, Win32Error::SharingViolation);
  }
  EXPECT_EQ(folder.Read("file"), "kept");
  EXPECT_TRUE(folders.Remove(other));
}

}  // namespace
