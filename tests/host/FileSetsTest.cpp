#include "gmock/gmock.h"

#include "coreapi/Vekfilesets.h"
#include "host/filesets/PathPattern.h"
#include "support/OsFixture.h"
#include "support/ProjectFixture.h"
#include "support/WineLimits.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Walks down to the file as a search does; no folder above a match is left out.
bool Matches(std::string_view text, std::string_view path) {
  const PathPattern pattern(text);
  PathPattern::State state = pattern.Start();
  bool canMatch = true;
  for (size_t slash; (slash = path.find('/')) != std::string_view::npos; path.remove_prefix(slash + 1)) {
    canMatch = canMatch && pattern.CanMatchBelow(state);
    state = pattern.Enter(state, path.substr(0, slash));
  }
  const bool matches = pattern.MatchesFile(state, path);
  EXPECT_TRUE(canMatch || !matches) << text << ' ' << path;
  return matches;
}

TEST(PathPattern, MatchesPathsBelowTheBaseFolder) {
  const struct {
    std::string_view pattern;
    StringList matches, misses;
  } cases[] = {
      {"*.cpp", {"a.cpp"}, {"sub/a.cpp"}},
      {"*.CPP", {"a.cpp"}, {}},
      {"*.*", {"README"}, {}},
      {"**\\*.cpp", {"a.cpp", "sub/deep/a.cpp"}, {}},
      {"**/*.cpp", {"sub/a.cpp"}, {}},
      {"**", {"sub/a.cpp"}, {}},
      {"sub\\**", {"sub/a.cpp", "sub/deep/er/a.cpp"}, {"sub", "other/a.cpp"}},
      {"sub\\", {"sub/deep/a.cpp"}, {}},
      {"SUB\\a.*", {"sub/a.cpp"}, {}},
      {"s*\\a.cpp", {"sub/a.cpp"}, {"sub/deep/a.cpp"}},
      {"**\\deep\\**\\a.cpp", {"x/deep/a.cpp", "deep/y/z/a.cpp"}, {"x/y/a.cpp"}},
      {"**\\deep\\*.cpp", {"deep/deep/a.cpp"}, {}},
      {"file?.txt", {"file1.txt"}, {"file12.txt"}},
      {".\\a.cpp", {"a.cpp"}, {}},
      {"", {}, {"a.cpp"}},
  };
  for (const auto& test : cases) {
    for (const std::string& path : test.matches)
      EXPECT_TRUE(Matches(test.pattern, path)) << test.pattern << ' ' << path;
    for (const std::string& path : test.misses)
      EXPECT_FALSE(Matches(test.pattern, path)) << test.pattern << ' ' << path;
  }
}

struct FileSetsTest : ProjectFixture, testing::Test {
  FileSetDeclaration& Declare(StringList includes, StringList excludes = {}) {
    return project.fileSets.emplace_back(
        FileSetDeclaration{"Set", folder.WindowsPath(), std::move(includes), std::move(excludes)});
  }

  IVekFileSet& Set() {
    Context().SetProject(&project);
    return *FindFileSet(Context().GetProjectObjectAPI(), "SET");
  }

  /// The files, relative to the base folder and with '/' between names.
  StringList Files(IVekFileSet& set) {
    StringList files = SplitAt(set.GetFileList("|"), "|");
    for (std::string& file : files) {
      EXPECT_TRUE(file.starts_with(folder.WindowsPath() + '\\')) << file;
      file = WithDelimiters(file.substr(folder.Path().size() + 1), '/');
    }
    return files;
  }
};

TEST_F(FileSetsTest, FilesComeInStableOrderWhateverTheOrderOfPatterns) {
  for (const char* name : {"b.txt", "A.txt", "sub/z.txt", "sub/deep/y.txt", "c.bin", "other/x.txt"}) {
    folder.Write(name);
  }
  Declare({"sub\\**", "*.txt", "**\\y.txt"}, {"b.*"});
  EXPECT_THAT(Files(Set()), ElementsAre("A.txt", "sub/z.txt", "sub/deep/y.txt"));
}

TEST_F(FileSetsTest, ExcludesWinAndHiddenFilesBelong) {
  for (const char* name : {".profile", "a.txt", "gen/a.txt", "gen/deep/b.txt", "lib/gen/c.txt"}) {
    folder.Write(name);
  }
  Declare({"**"}, {"gen\\**"});
  EXPECT_THAT(Files(Set()), ElementsAre(".profile", "a.txt", "lib/gen/c.txt"));
}

TEST_F(FileSetsTest, IsEvaluatedOnFirstUseAndOnRefresh) {
  folder.Write("a.txt", "12345");
  Declare({"*"});
  IVekFileSet& set = Set();
  folder.Write("b.txt", "67");
  EXPECT_THAT(Files(set), ElementsAre("a.txt", "b.txt"));
  folder.Write("c.txt", "8");
  EXPECT_EQ(set.GetTotalSize(), 7u);
  set.Refresh();
  EXPECT_THAT(Files(set), ElementsAre("a.txt", "b.txt", "c.txt"));
  EXPECT_EQ(set.GetTotalSize(), 8u);
}

TEST_F(FileSetsTest, ExpressionsAreExpandedWhenItIsEvaluated) {
  folder.Write("a.txt");
  folder.Write("b.log");
  FileSetDeclaration& declaration = Declare({"*.%EXT%"});
  declaration.baseDirectory = "%BASE%\\";
  IVekFileSet& set = Set();
  EXPECT_THROW(set.GetFileList("|"), EVekExpressionError);
  Context().SetVariable("BASE", folder.WindowsPath());
  Context().SetVariable("EXT", std::string("log"));
  EXPECT_EQ(set.GetBaseDirectory(), "%BASE%\\");
  EXPECT_THAT(Files(set), ElementsAre("b.log"));
}

TEST_F(FileSetsTest, AMissingFolderHoldsNothing) {
  Declare({"**"}).baseDirectory += "/missing";
  EXPECT_THAT(Files(Set()), IsEmpty());
}

TEST_F(FileSetsTest, FollowsLinksWhereTheProjectSaysSoButNotRoundInCircles) {
  if (WineLimits::NoLinks()) GTEST_SKIP() << "Wine makes no links";
  folder.Write("a/x.txt");
  folder.Write("b/y.txt");
  MakeLink("..", folder.Path("a/up"));
  MakeLink("../b", folder.Path("a/side"));
  MakeLink("../b/y.txt", folder.Path("a/y.txt"));
  Declare({"**"});
  EXPECT_THAT(Files(Set()), ElementsAre("a/x.txt", "a/y.txt", "b/y.txt"));
  project.followLinks = true;
  EXPECT_THAT(Files(Set()), ElementsAre("a/x.txt", "a/y.txt", "a/side/y.txt", "b/y.txt"));
}

TEST_F(FileSetsTest, AWalkThatIsBrokenOffLeavesTheSetAsItWas) {
  folder.Write("a/x.txt");
  folder.Write("b/y.txt");
  Declare({"**"});
  IVekFileSet& set = Set();
  Context().Stop().RequestStop();
  EXPECT_THROW(set.GetFileList("|"), EVekError);
}

TEST_F(FileSetsTest, OthersAreNotFound) {
  Declare({"**"});
  Context().SetProject(&project);
  EXPECT_EQ(FindFileSet(Context().GetProjectObjectAPI(), "Sets"), nullptr);
  EXPECT_EQ(Context().GetProjectObjectAPI().FindObject("Set", "OtherObject"), nullptr);
}

}  // namespace
