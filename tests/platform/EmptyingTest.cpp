#include <filesystem>

#include "platform/Platform.h"
#include "platform/PlatformTest.h"
#include "platform/ProtectedFolders.h"
#include "support/HomeFolder.h"

namespace {

using EmptyingTest = PlatformTest;

TEST_F(EmptyingTest, GoesAsDeepAsThereAreFolders) {
  if (WineLimits::NoDeepTrees()) GTEST_SKIP() << "Wine leaves a program that went this deep with an error";
  constexpr int kLevels = 300;  // more than are held open at a time
  const std::string before = environment.CurrentFolder();
  ASSERT_TRUE(folders.Create(Path("tree")));
  ASSERT_TRUE(environment.SetCurrentFolder(Path("tree")));
  int level = 0;
  while (level < kLevels && folders.Create("inner") && environment.SetCurrentFolder("inner")) ++level;
  environment.SetCurrentFolder(before);
  EXPECT_GT(level, 20);  // some systems have current folders of short names only
  EXPECT_TRUE(folders.Empty(Path("tree"), {}));
  EXPECT_TRUE(folder.Names("tree").empty());
}

TEST_F(EmptyingTest, ATreeThatChangesMeanwhileLeadsNowhere) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "links are not made";
  folder.Write("kept/x", "1");
  folder.Write("tree/a/x", "2");
  folder.Write("tree/b", "3");
  EmptyingOptions options{.shownAs = "t/"};
  options.watch = [this](EmptyingStep step, std::string_view path) {
    if (step == EmptyingStep::Enter && path == "t/a") {
      std::filesystem::rename(Path("tree/a"), Path("moved"));
      MakeLink(Path("kept"), Path("tree/a"));
    }
    return true;
  };
  EXPECT_FALSE(folders.Empty(Path("tree"), options));
  EXPECT_EQ(folder.Read("kept/x"), "1");
  EXPECT_EQ(folder.Read("moved/x"), "2");
  EXPECT_EQ(folder.Read("tree/b"), "3");
  EXPECT_TRUE(folders.Empty(Path("tree"), {}));
  EXPECT_EQ(folder.Read("kept/x"), "1");
}

TEST_F(EmptyingTest, WhatVanishesIsPassedOverAndAWatchEndsIt) {
  folder.Write("tree/a", "1");
  folder.Write("tree/b", "2");
  EmptyingOptions options{.shownAs = "t/"};
  options.watch = [this](EmptyingStep, std::string_view path) {
    return path != "t/a" || entries.Delete(Path("tree/a")).ok;
  };
  EXPECT_TRUE(folders.Empty(Path("tree"), options));
  folder.Write("tree/c", "3");
  options.watch = [](EmptyingStep, std::string_view) { return false; };
  EXPECT_EQ(folders.Empty(Path("tree"), options).code, Win32Error::RequestAborted);
  EXPECT_EQ(folder.Read("tree/c"), "3");
}

TEST_F(EmptyingTest, RootsTheHomeFolderAndTheSystemsOwnAreProtected) {
  const Platform& platform = owner->Get();
  folder.Write("home/inner/p.vekproj");
  const HomeFolder moved(Path("home"));
  const std::string root = environment.FullPath("/");
  const std::string reserved = environment.ReservedFolders().front();
  const std::string project = Path("home/inner/p.vekproj");
  const struct {
    std::string path;
    bool isProtected;
  } trees[] = {
      {root, true},         {reserved, true},      {Path("home"), true},       {Path("home/."), true},
      {Path("HOME"), true}, {folder.Path(), true}, {Path("home/inner"), true}, {Path("home/missing"), false},
  };
  for (const auto& [path, isProtected] : trees) {
    EXPECT_EQ(IsProtectedTree(platform, path, project), isProtected) << path;
  }
  EXPECT_FALSE(IsProtectedTree(platform, Path("home/inner"), ""));
  const struct {
    std::string spec;
    bool isProtected;
  } selections[] = {
      {root + "*.tmp", true},      {root + "file", false},        {Path("home/*.*"), true},
      {Path("home/*.tmp"), false}, {Path("home/inner/*"), false}, {Path("home/name"), false},
  };
  for (const auto& [spec, isProtected] : selections) {
    EXPECT_EQ(IsProtectedSelection(platform, spec), isProtected) << spec;
  }
}

}  // namespace
