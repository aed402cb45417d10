#include <filesystem>

#include "platform/Files.h"
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
    EXPECT_EQ(files.FileExists(c.path), c.isFile) << c.path;
    EXPECT_EQ(files.FolderExists(c.path), c.isFolder) << c.path;
    EXPECT_EQ(files.EntryExists(c.path), c.isEntry) << c.path;
  }
}

TEST_F(FilesTest, DeleteRefuses) {
  folder.Write("locked");
  SetMode(Path("locked"), 0444);
  folder.MakeFolder("folder");
  const std::pair<std::string, Win32Error> cases[] = {
      {Path("locked"), Win32Error::AccessDenied},
      {Path("folder"), Win32Error::AccessDenied},
      {Path("missing"), Win32Error::FileNotFound},
      {Path("missing\\x"), Win32Error::PathNotFound},
      {Path(std::string(300, 'x')), Win32Error::FilenameExcedRange},
  };
  for (const auto& [path, code] : cases) {
    const SysResult result = files.Delete(path);
    EXPECT_FALSE(result.ok) << path;
    EXPECT_EQ(result.code, code) << path;
  }
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"folder", "locked"}));
}

TEST_F(FilesTest, WhatASearchSawDoesNotOutliveAChange) {
  folder.Write("file");
  SysResult result;
  const auto search = finder.Open(Path("*"), FileAttribute::ReadOnly, result);
  FoundEntry entry;
  ASSERT_TRUE(search->Next(entry));
  ASSERT_TRUE(files.SetAttributes(Path("file"), FileAttribute::ReadOnly));
  EXPECT_EQ(files.Delete(Path("file")).code, Win32Error::AccessDenied);
  ASSERT_TRUE(files.SetAttributes(Path("file"), FileAttribute::Normal));
  EXPECT_TRUE(files.Delete(Path("file")));
}

TEST_F(FilesTest, ADeletedNameIsNotFoundUnderAnotherFolderOfTheSameName) {
  folder.Write("work/file");
  EXPECT_TRUE(files.EntryExists(Path("work/file")));
  EXPECT_TRUE(files.Delete(Path("work/file")));
  EXPECT_TRUE(files.RemoveFolder(Path("work")));
  EXPECT_EQ(files.Delete(Path("work/file")).code, Win32Error::PathNotFound);
  folder.Write("work/file");
  EXPECT_TRUE(files.EntryExists(Path("work/file")));
}

TEST_F(FilesTest, CreateFolder) {
  folder.Write("file");
  EXPECT_TRUE(files.CreateFolder(Path("New")));
  EXPECT_TRUE(files.CreateFolder(Path("NEW\\Inner\\")));
  EXPECT_EQ(folder.Names("New"), std::vector<std::string>{"Inner"});
  EXPECT_EQ(files.CreateFolder(Path("New")).code, Win32Error::AlreadyExists);
  EXPECT_EQ(files.CreateFolder(Path("nEW")).code, Win32Error::AlreadyExists);
  EXPECT_EQ(files.CreateFolder(Path("File")).code, Win32Error::AlreadyExists);
  EXPECT_EQ(files.CreateFolder(Path("missing/x")).code, Win32Error::PathNotFound);
}

TEST_F(FilesTest, CreateFolders) {
  folder.Write("file");
  folder.MakeFolder("Old");
  EXPECT_TRUE(files.CreateFolders(Path("OLD\\a\\b/c")));
  EXPECT_TRUE(files.CreateFolders(Path("old/A")));
  EXPECT_TRUE(folder.Exists("Old/a/b/c"));
  EXPECT_EQ(folder.Names("Old"), std::vector<std::string>{"a"});
  EXPECT_FALSE(files.CreateFolders(Path("file/x")));
  EXPECT_FALSE(files.CreateFolders(Path("file")));
}

TEST_F(FilesTest, RemoveFolder) {
  folder.Write("full/file");
  folder.MakeFolder("Empty");
  EXPECT_TRUE(files.RemoveFolder(Path("EMPTY")));
  EXPECT_EQ(files.RemoveFolder(Path("full")).code, Win32Error::DirNotEmpty);
  EXPECT_EQ(files.RemoveFolder(Path("full/file")).code, Win32Error::Directory);
  EXPECT_EQ(files.RemoveFolder(Path("missing")).code, Win32Error::FileNotFound);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"full"});
}

TEST_F(FilesTest, AReadOnlyFolderIsNotRemoved) {
  if (WineLimits::FixedAttributes()) GTEST_SKIP() << "Wine has no read-only folders";
  folder.MakeFolder("locked");
  SetMode(Path("locked"), 0555);
  EXPECT_EQ(files.RemoveFolder(Path("locked")).code, Win32Error::AccessDenied);
  EXPECT_TRUE(folder.Exists("locked"));
}

TEST_F(FilesTest, RemovingALinkLeavesWhatItLeadsTo) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.Write("full/file");
  MakeLink(Path("full"), Path("link"));
  EXPECT_TRUE(files.RemoveFolder(Path("link")));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"full"});
}

TEST_F(FilesTest, SeesNamesThatOthersMakeAndTakeAway) {
  EXPECT_FALSE(files.FileExists(Path("name")));
  folder.Write("NAME");
  EXPECT_TRUE(files.FileExists(Path("name")));
  EXPECT_TRUE(files.Replace(Path("other"), ""));
  folder.Write("Third");
  EXPECT_TRUE(files.FileExists(Path("OTHER")));
  EXPECT_TRUE(files.FileExists(Path("THIRD")));
  EXPECT_TRUE(files.Delete(Path("third")));
  EXPECT_FALSE(files.FileExists(Path("THIRD")));
}

TEST_F(FilesTest, IdentityIsThatOfTheFileWhateverItIsCalled) {
  folder.Write("File", "12345");
  folder.Write("other");
  std::filesystem::create_hard_link(Path("File"), Path("twin"));
  const auto identity = files.Identity(Path("File"));
  ASSERT_TRUE(identity);
  EXPECT_EQ(files.Identity(Path("FILE")), identity);
  EXPECT_EQ(files.Identity(Path("twin")), identity);
  EXPECT_NE(files.Identity(Path("other")), identity);
  EXPECT_EQ(files.Identity(Path("missing")), std::nullopt);
  EXPECT_EQ(files.Identity(folder.Path()), files.Identity(folder.Path() + "/"));
}

TEST_F(FilesTest, IdentityFollowsLinks) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.MakeFolder("place");
  MakeLink(Path("place"), Path("link"));
  MakeLink(Path("nowhere"), Path("dangling"));
  EXPECT_EQ(files.Identity(Path("link")), files.Identity(Path("place")));
  EXPECT_EQ(files.Identity(Path("dangling")), std::nullopt);
}

TEST_F(FilesTest, GetSize) {
  folder.Write("File", "12345");
  uint64_t size = 0;
  EXPECT_TRUE(files.GetSize(Path("FILE"), size));
  EXPECT_EQ(size, 5u);
  EXPECT_TRUE(files.GetSize(folder.Path(), size));
  EXPECT_EQ(size, 0u);
  EXPECT_EQ(files.GetSize(Path("missing"), size).code, Win32Error::FileNotFound);
  EXPECT_EQ(files.GetSize(Path("missing/x"), size).code, Win32Error::PathNotFound);
}

}  // namespace
