#include "gtest/gtest.h"

#include "base/WindowsPath.h"

namespace {

TEST(WindowsPath, Parts) {
  const struct {
    std::string_view path, folder, name, directory, parent;
  } cases[] = {
      {"", "", "", "", ""},
      {"a.txt", "", "a.txt", "", ""},
      {"C:\\x\\*.tmp", "C:\\x\\", "*.tmp", "C:\\x", "C:\\x"},
      {"C:\\x\\", "C:\\x\\", "", "C:\\x", "C:\\"},
      {"C:*.tmp", "C:", "*.tmp", "C:", "C:"},
      {"C:\\a", "C:\\", "a", "C:\\", "C:\\"},
      {"/a\\b/c", "/a\\b/", "c", "/a\\b", "/a\\b"},
      {"\\a", "\\", "a", "\\", "\\"},
      {"a\\b", "a\\", "b", "a", "a"},
      {"ab:c", "", "ab:c", "", ""},
      {"/a:b", "/", "a:b", "/", "/"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FolderPart(c.path), c.folder) << c.path;
    EXPECT_EQ(NamePart(c.path), c.name) << c.path;
    EXPECT_EQ(DirectoryPart(c.path), c.directory) << c.path;
    EXPECT_EQ(ParentFolder(c.path), c.parent) << c.path;
  }
}

TEST(WindowsPath, TrailingDelimiter) {
  EXPECT_EQ(WithTrailingDelimiter("", '/'), "");
  EXPECT_EQ(WithTrailingDelimiter("C:\\a", '\\'), "C:\\a\\");
  EXPECT_EQ(WithTrailingDelimiter("/a/", '\\'), "/a/");
  EXPECT_EQ(WithoutTrailingDelimiter("/a/"), "/a");
  EXPECT_EQ(WithoutTrailingDelimiter("a\\\\"), "a\\");
}

TEST(WindowsPath, WildcardsCountInTheNameOnly) {
  EXPECT_TRUE(HasWildcards("a\\b?"));
  EXPECT_FALSE(HasWildcards("a*\\b"));
  EXPECT_FALSE(HasWildcards(""));
}

}  // namespace
