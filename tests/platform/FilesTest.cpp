#include <filesystem>

#include "platform/Entries.h"
#include "platform/PlatformTest.h"

namespace {

using FilesTest = PlatformTest;

TEST_F(FilesTest, ExistenceByKindAndCase) {
  folder.Write("Sub/File.txt");
  const struct {
    std::string path;
    bool isFile, isFolder, isEntry;
  } cases[] = {
      {Path("Sub/File.txt"), true, false, true},
      {Path("sUb\\FILE.TXT"), true, false, false},
      {Path("SUB/File.txt"), true, false, true},
      {Path("Sub"), false, true, true},
      {Path("sub\\"), false, true, false},
      {Path("missing"), false, false, false},
      {Path("missing\\File.txt"), false, false, false},
      {Path("Sub/File.txt/x"), false, false, false},
      {Path("Sub/File.txt/"), false, false, true},
      {Path("Sub/File.txt\\"), false, false, true},
      {"", false, false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(entries.FileExists(c.path), c.isFile) << c.path;
    EXPECT_EQ(folders.Exists(c.path), c.isFolder) << c.path;
    EXPECT_EQ(entries.EntryExists(c.path), c.isEntry) << c.path;
  }
}

TEST_F(FilesTest, ANameMayBeTooLong) {
  EXPECT_EQ(entries.Delete(Path(std::string(300, 'x'))).code, Win32Error::FilenameExcedRange);
}

TEST_F(FilesTest, WhatASearchSawDoesNotOutliveAChange) {
  folder.Write("file");
  SysResult result;
  const auto search = finder.Open(Path("*"), FileAttribute::ReadOnly, result);
  FoundEntry entry;
  ASSERT_TRUE(search->Next(entry));
  ASSERT_TRUE(entries.SetAttributes(Path("file"), FileAttribute::ReadOnly));
  EXPECT_EQ(entries.Delete(Path("file")).code, Win32Error::AccessDenied);
  ASSERT_TRUE(entries.SetAttributes(Path("file"), FileAttribute::Normal));
  EXPECT_TRUE(entries.Delete(Path("file")));
}

TEST_F(FilesTest, ADeletedNameIsNotFoundUnderAnotherFolderOfTheSameName) {
  folder.Write("work/file");
  EXPECT_TRUE(entries.EntryExists(Path("work/file")));
  EXPECT_TRUE(entries.Delete(Path("work/file")));
  EXPECT_TRUE(folders.Remove(Path("work")));
  EXPECT_EQ(entries.Delete(Path("work/file")).code, Win32Error::PathNotFound);
  folder.Write("work/file");
  EXPECT_TRUE(entries.EntryExists(Path("work/file")));
}

TEST_F(FilesTest, CreateFolder) {
  folder.Write("file");
  EXPECT_TRUE(folders.Create(Path("New")));
  EXPECT_TRUE(folders.Create(Path("NEW\\Inner\\")));
  EXPECT_EQ(folder.Names("New"), std::vector<std::string>{"Inner"});
  EXPECT_EQ(folders.Create(Path("New")).code, Win32Error::AlreadyExists);
  EXPECT_EQ(folders.Create(Path("nEW")).code, Win32Error::AlreadyExists);
  EXPECT_EQ(folders.Create(Path("File")).code, Win32Error::AlreadyExists);
  EXPECT_EQ(folders.Create(Path("missing/x")).code, Win32Error::PathNotFound);
}

TEST_F(FilesTest, CreateFolders) {
  folder.Write("file");
  folder.MakeFolder("Old");
  EXPECT_TRUE(folders.CreateWithParents(Path("OLD\\a\\b/c")));
  EXPECT_TRUE(folders.CreateWithParents(Path("old/A")));
  EXPECT_TRUE(folder.Exists("Old/a/b/c"));
  EXPECT_EQ(folder.Names("Old"), std::vector<std::string>{"a"});
  EXPECT_FALSE(folders.CreateWithParents(Path("file/x")));
  EXPECT_FALSE(folders.CreateWithParents(Path("file")));
}

TEST_F(FilesTest, RemoveFolder) {
  folder.Write("full/file");
  folder.MakeFolder("Empty");
  EXPECT_TRUE(folders.Remove(Path("EMPTY")));
  EXPECT_EQ(folders.Remove(Path("full")).code, Win32Error::DirNotEmpty);
  EXPECT_EQ(folders.Remove(Path("full/file")).code, Win32Error::Directory);
  EXPECT_EQ(folders.Remove(Path("missing")).code, Win32Error::FileNotFound);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"full"});
}

TEST_F(FilesTest, AReadOnlyFolderIsNotRemoved) {
  if (WineLimits::FixedAttributes()) GTEST_SKIP() << "Wine has no read-only folders";
  folder.MakeFolder("locked");
  SetMode(Path("locked"), 0555);
  EXPECT_EQ(folders.Remove(Path("locked")).code, Win32Error::AccessDenied);
  EXPECT_TRUE(folder.Exists("locked"));
}

TEST_F(FilesTest, RemovingALinkLeavesWhatItLeadsTo) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.Write("full/file");
  MakeLink(Path("full"), Path("link"));
  EXPECT_TRUE(folders.Remove(Path("link")));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"full"});
}

TEST_F(FilesTest, SeesNamesThatOthersMakeAndTakeAway) {
  EXPECT_FALSE(entries.FileExists(Path("name")));
  folder.Write("NAME");
  EXPECT_TRUE(entries.FileExists(Path("name")));
  EXPECT_TRUE(data.Replace(Path("other"), ""));
  folder.Write("Third");
  EXPECT_TRUE(entries.FileExists(Path("OTHER")));
  EXPECT_TRUE(entries.FileExists(Path("THIRD")));
  EXPECT_TRUE(entries.Delete(Path("third")));
  EXPECT_FALSE(entries.FileExists(Path("THIRD")));
}

TEST_F(FilesTest, IdentityIsThatOfTheFileWhateverItIsCalled) {
  folder.Write("File", "12345");
  folder.Write("other");
  std::filesystem::create_hard_link(Path("File"), Path("twin"));
  const auto identity = entries.Identity(Path("File"));
  ASSERT_TRUE(identity);
  EXPECT_EQ(entries.Identity(Path("FILE")), identity);
  EXPECT_EQ(entries.Identity(Path("twin")), identity);
  EXPECT_NE(entries.Identity(Path("other")), identity);
  EXPECT_EQ(entries.Identity(Path("missing")), std::nullopt);
  EXPECT_EQ(entries.Identity(folder.Path()), entries.Identity(folder.Path() + "/"));
}

TEST_F(FilesTest, IdentityFollowsLinks) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.MakeFolder("place");
  MakeLink(Path("place"), Path("link"));
  MakeLink(Path("nowhere"), Path("dangling"));
  EXPECT_EQ(entries.Identity(Path("link")), entries.Identity(Path("place")));
  EXPECT_EQ(entries.Identity(Path("dangling")), std::nullopt);
}

TEST_F(FilesTest, GetSize) {
  folder.Write("File", "12345");
  uint64_t size = 0;
  EXPECT_TRUE(entries.GetSize(Path("FILE"), size));
  EXPECT_EQ(size, 5u);
  EXPECT_TRUE(entries.GetSize(folder.Path(), size));
  EXPECT_EQ(size, 0u);
  EXPECT_EQ(entries.GetSize(Path("missing"), size).code, Win32Error::FileNotFound);
  EXPECT_EQ(entries.GetSize(Path("missing/x"), size).code, Win32Error::PathNotFound);
}

}  // namespace
