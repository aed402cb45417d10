#include "ToolTest.h"

namespace {

struct XcopyTest : ToolTest {
  void SetUp() override {
    disk.Write({"a/f.txt=1", "a/g.log=2", "!a/locked=3", "a/sub/obj/h.txt=4", "a/sub/i.txt=5", "a/empty/",
                "a/.hidden=6"});
  }
};

TEST_F(XcopyTest, SwitchesAndWhatArrives) {
  const StringList top = {"b/f.txt=1", "b/g.log=2", "b/locked=3"};
  StringList deep = top;
  deep.insert(deep.end(), {"b/sub/i.txt=5", "b/sub/obj/h.txt=4"});
  folder.Write("excluded", "/obj/\n.LOG\n");
  const struct {
    StringList arguments, arrived;
    int exitCode;
    std::string lastLine;
  } cases[] = {
      {{"a", "b"}, top, 0, "3 File(s) copied"},
      {{"a/*.txt", "b/", "/Y", "/I", "/Q"}, {"b/f.txt=1"}, 0, "1 File(s) copied"},
      {{"a", "b", "/s/y"}, deep, 0, "5 File(s) copied"},
      {{"a", "b", "/E", "/EXCLUDE:excluded"},
       {"b/empty/", "b/f.txt=1", "b/locked=3", "b/sub/i.txt=5"},
       0,
       "3 File(s) copied"},
      {{"a", "b", "/H", "/K"},
       {"!b/locked=3", "b/.hidden=6", "b/f.txt=1", "b/g.log=2"},
       0,
       "4 File(s) copied"},
      {{"a", "b", "/T"}, {"b/sub/obj/"}, 0, ""},
      {{"a", "b", "/L"}, {}, 0, "3 File(s)"},
      {{"a", "b", "/A"}, {}, 0, "0 File(s) copied"},
      {{"a", "b", "/U"}, {}, 0, "0 File(s) copied"},
      {{"a", "b", "/D:1-1-2000"}, top, 0, "3 File(s) copied"},
      {{"a/f.txt", "b", "/D:12-31-2999"}, {}, 0, "0 File(s) copied"},
      {{"a/*.none", "b"}, {}, 1, "0 File(s) copied"},
      {{"missing", "b"}, {}, 4, "0 File(s) copied"},
      {{"a", "b", "/EXCLUDE:missing"}, {}, 4, SystemText(Win32Error::FileNotFound)},
      {{"a", "a/sub/new", "/S"}, {}, 4, "XCOPY /? tells more."},
      {{"a", "b", "/D:13-1-2000"}, {}, 4, "XCOPY /? tells more."},
  };
  for (const auto& c : cases) {
    const std::string shown = JoinLines(c.arguments, " ");
    const ProgramResult result = Run("xcopy", c.arguments);
    EXPECT_EQ(result.exitCode, c.exitCode) << shown << result.out;
    StringList arrived;
    if (folder.Exists("b")) arrived = disk.Read("b/");
    std::ranges::sort(arrived);
    EXPECT_EQ(arrived, c.arrived) << shown;
    const StringList lines = SplitLines(result.out);
    EXPECT_EQ(lines.empty() ? "" : lines.back(), c.lastLine) << shown;
    if (!folder.Exists("b")) continue;
    ASSERT_TRUE(platform.folders->Empty(folder.Path("b"), {.deleteReadOnly = true, .shownAs = "/"}));
    ASSERT_TRUE(platform.folders->Remove(folder.Path("b")));
  }
}

TEST_F(XcopyTest, ReadOnlyTargetsNewerFilesAndErrors) {
  disk.Write({"!b/f.txt=old", "b/g.log=old"});
  ProgramResult result = Run("xcopy", {"a", "b", "/Y"});
  EXPECT_EQ(result.exitCode, 5);
  EXPECT_EQ(disk.Read("b/"), (StringList{"!b/f.txt=old", "b/g.log=old"}));
  result = Run("xcopy", {"a", "b", "/Y", "/C"});
  EXPECT_EQ(result.exitCode, 5);
  EXPECT_EQ(disk.Read("b/"), (StringList{"!b/f.txt=old", "b/g.log=2", "b/locked=3"}));
  result = Run("xcopy", {"a", "b", "/Y", "/R", "/D"});
  EXPECT_EQ(result.out, "0 File(s) copied\n");
  result = Run("xcopy", {"a/f.txt", "b", "/Y", "/R", "/F"});
  EXPECT_EQ(result.out, folder.Path("a/f.txt") + " -> " + folder.Path("b/f.txt") + "\n1 File(s) copied\n");
}

}  // namespace
