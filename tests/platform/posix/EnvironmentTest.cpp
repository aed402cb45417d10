#include "platform/PlatformTest.h"

namespace {

using PosixEnvironmentTest = PlatformTest;

TEST_F(PosixEnvironmentTest, FullPathIsAbsoluteAndPlain) {
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  const std::string here = environment.CurrentFolder();
  const std::pair<std::string, std::string> cases[] = {
      {"a\\b", here + "/a/b"},
      {".\\a\\..\\b\\", here + "/b"},
      {"", here},
      {"/x//y/./z/", "/x/y/z"},
      {"\\x\\..\\..\\..", "/"},
      {"Z:\\x", "/x"},
      {"q:a\\b", here + "/a/b"},
      {"Q:\\..", here.substr(0, here.rfind('/'))},
      {"W:\\x", "W:\\x"},
  };
  for (const auto& [path, wanted] : cases) EXPECT_EQ(environment.FullPath(path), wanted) << path;
  ASSERT_TRUE(environment.SetCurrentFolder("/"));
}

TEST_F(PosixEnvironmentTest, WhatIsAddedToAPathIsSpeltAsThePathIs) {
  for (const auto& [path, wanted] : {std::pair("a\\b/c", '\\'), {"/a\\b", '/'}, {"Z:", '/'}, {"", '/'}}) {
    EXPECT_EQ(environment.PathDelimiter(path), wanted) << path;
  }
}

TEST_F(PosixEnvironmentTest, NativePathsAreWhatOtherProgramsTake) {
  folder.Write("Sub/File");
  const std::pair<std::string, std::string> cases[] = {
      {Path("SUB\\FILE"), Path("Sub/File")},
      {"Q:\\sub", Path("Sub")},
      {"Q:/Sub\\new.txt", Path("Sub/new.txt")},
      {Path("missing\\x"), Path("missing/x")},
      {"a\\b", "a/b"},
      {"W:\\x", "W:\\x"},
      {"\\", "/"},
      {"", ""},
  };
  for (const auto& [path, wanted] : cases) EXPECT_EQ(environment.NativePath(path), wanted) << path;
}

TEST_F(PosixEnvironmentTest, FoldersFollowTheEnvironment) {
  const auto data = environment.Variable("XDG_DATA_HOME"), temp = environment.Variable("TMPDIR");
  SetVariable("XDG_DATA_HOME", "/data/");
  SetVariable("TMPDIR", folder.Path() + "/");
  EXPECT_EQ(environment.DataFolder(), "/data/vekrun");
  EXPECT_EQ(environment.TempFolder(), folder.Path());
  SetVariable("XDG_DATA_HOME", "relative");
  SetVariable("TMPDIR", std::nullopt);
  EXPECT_TRUE(environment.DataFolder().ends_with("/.local/share/vekrun"));
  EXPECT_EQ(environment.TempFolder(), "/tmp");
  SetVariable("XDG_DATA_HOME", data);
  SetVariable("TMPDIR", temp);
  EXPECT_EQ(environment.ProgramFolder(), VEK_BIN_DIR);
}

}  // namespace
