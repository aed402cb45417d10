#include "platform/FinderTesting.h"

namespace {

using namespace FileAttribute;  // NOLINT(google-build-using-namespace): masks read as sums of bits

using Names = std::vector<std::string>;

TEST_F(FinderTest, EntriesComeByUpperCasedName) {
  const Names wanted = {"!",
                        "a-long-common-start-1",
                        "A-long-common-start-2",
                        "a-long-common-start-_",
                        "ab",
                        "B",
                        "c.txt",
                        "_",
                        "\xC3\xA4",
                        "\xC3\x9C"
                        "b"};
  for (auto name = wanted.rbegin(); name != wanted.rend(); ++name) folder.Write(*name);
  EXPECT_EQ(Find(Path("*")), wanted);
  EXPECT_EQ(Find(Path("a-*")),
            (Names{"a-long-common-start-1", "A-long-common-start-2", "a-long-common-start-_"}));
}

TEST_F(FinderTest, MaskRule) {
  if (!StoresAttributes(folder.Path())) GTEST_SKIP() << "this file system stores no attributes";
  for (const auto& [name, attributes] : std::vector<std::pair<std::string, uint32_t>>{{"archive", Archive},
                                                                                      {"hidden", Hidden},
                                                                                      {"hs", Hidden | System},
                                                                                      {"normal", 0},
                                                                                      {"readonly", ReadOnly},
                                                                                      {"system", System}}) {
    folder.Write(name);
    ASSERT_TRUE(entries.SetAttributes(Path(name), attributes)) << name;
  }
  folder.MakeFolder("folder");
  const std::pair<uint32_t, Names> cases[] = {
      {0, {"archive", "normal", "readonly"}},
      {ReadOnly | Archive, {"archive", "normal", "readonly"}},
      {ReadOnly | Hidden, {"archive", "hidden", "normal", "readonly"}},
      {System, {"archive", "normal", "readonly", "system"}},
      {Hidden | System, {"archive", "hidden", "hs", "normal", "readonly", "system"}},
      {Directory, {".", "..", "archive", "folder", "normal", "readonly"}},
      {AnyFile, {".", "..", "archive", "folder", "hidden", "hs", "normal", "readonly", "system"}},
  };
  for (const auto& [mask, wanted] : cases) EXPECT_EQ(Find(Path("*.*"), mask), wanted) << mask;
}

TEST_F(FinderTest, DotsComeOnlyWhereTheWildcardsMatchThem) {
  folder.MakeFolder("a");
  folder.MakeFolder("-first");
  EXPECT_EQ(Find(Path("*"), Directory), (Names{".", "..", "-first", "a"}));
  EXPECT_EQ(Find(Path("a*"), Directory), Names{"a"});
  EXPECT_EQ(Find(Path("a"), Directory), Names{"a"});
}

TEST_F(FinderTest, FormsOfASpec) {
  folder.Write("Sub/One.tmp");
  folder.Write("Sub/two.TMP");
  folder.Write("Sub/three.txt");
  const Names both = {"One.tmp", "two.TMP"};
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  for (const std::string& spec :
       {Path("Sub/*.tmp"), Path("Sub\\*.tmp"), Path("sUB/*.tmp"), Path("SUB\\\\*.tmp"),
        std::string("sub\\*.tmp"), std::string(".\\sub\\..\\Sub\\*.tmp")}) {
    EXPECT_EQ(Find(spec), both) << spec;
  }
  ASSERT_TRUE(environment.SetCurrentFolder("sub"));
  EXPECT_EQ(Find("*.tmp"), both);
  EXPECT_EQ(Find("THREE.TXT"), Names{"three.txt"});
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

TEST_F(FinderTest, ASpecWithoutWildcardsFindsTheOneEntry) {
  folder.Write("Name.TXT");
  EXPECT_EQ(Find(Path("nAmE.txt")), Names{"Name.TXT"});
}

TEST_F(FinderTest, SaysWhyNothingIsFound) {
  folder.Write("file");
  folder.MakeFolder("folder");
  const std::pair<std::string, Win32Error> cases[] = {
      {Path("*.nothing"), Win32Error::FileNotFound},
      {Path("nothing"), Win32Error::FileNotFound},
      {Path("folder"), Win32Error::FileNotFound},
      {Path("file/"), Win32Error::FileNotFound},
      {Path("missing/*"), Win32Error::PathNotFound},
      {Path("file/*"), Win32Error::PathNotFound},
      {"", Win32Error::PathNotFound},
      {Path("f*/x"), Win32Error::InvalidName},
  };
  for (const auto& [spec, code] : cases) EXPECT_EQ(CodeOf(spec), code) << spec;
}

TEST_F(FinderTest, TellsWhatTheDiskHolds) {
  folder.Write("a", "12345");
  folder.MakeFolder("b");
  const auto entries = Entries(Path("?"), Directory);
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].size, 5u);
  EXPECT_EQ(entries[1].size, 0u);
  EXPECT_EQ(entries[1].attributes, Directory);
  EXPECT_GT(entries[0].lastWrite, 1.7e9);
}

TEST_F(FinderTest, PassesOverWhatVanishes) {
  for (const char* name : {"a", "b", "c"}) folder.Write(name);
  SysResult result;
  const auto search = finder.Open(Path("*"), 0, result);
  FoundEntry entry;
  ASSERT_TRUE(search->Next(entry));
  ASSERT_TRUE(entries.Delete(Path("b")));
  ASSERT_TRUE(search->Next(entry));
  EXPECT_EQ(entry.name, "c");
  EXPECT_FALSE(search->Next(entry));
}

TEST_F(FinderTest, LessDetailFindsTheSameNames) {
  folder.Write("file", "12345");
  folder.MakeFolder("Folder");
  for (const char* name : {"hidden", "Sub"}) {
    name == std::string("Sub") ? folder.MakeFolder(name) : folder.Write(name);
    ASSERT_TRUE(!StoresAttributes(folder.Path()) || entries.SetAttributes(Path(name), Hidden));
  }
  for (const uint32_t mask : {0u, Hidden | 0u, Directory | 0u, Directory | Hidden}) {
    Names all = Find(Path("*"), mask), names, folderNames, wantedFolders;
    for (const auto& [detail, found] :
         {std::pair(FindDetail::Names, &names), std::pair(FindDetail::FolderNames, &folderNames)}) {
      SysResult result;
      const auto search = finder.Open(Path("*"), mask, detail, result);
      for (FoundEntry entry; search->Next(entry);) {
        found->push_back(entry.name);
        EXPECT_EQ((entry.attributes & Directory) != 0, folders.Exists(Path(entry.name))) << entry.name;
      }
      EXPECT_EQ(result.code, found->empty() ? Win32Error::FileNotFound : Win32Error::Success);
    }
    for (const std::string& name : all) {
      if (!name.starts_with('.') && folders.Exists(Path(name))) wantedFolders.push_back(name);
    }
    EXPECT_EQ(names, all) << mask;
    EXPECT_EQ(folderNames, wantedFolders) << mask;
  }
}

TEST_F(FinderTest, LessDetailStillMarksLinks) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.MakeFolder("place");
  MakeLink(Path("place"), Path("link"));
  SysResult result;
  const auto search = finder.Open(Path("*k"), Directory, FindDetail::FolderNames, result);
  FoundEntry entry;
  ASSERT_TRUE(search->Next(entry));
  EXPECT_EQ(entry.attributes, Directory | ReparsePoint);
}

}  // namespace
