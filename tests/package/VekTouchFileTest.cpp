#include "gmock/gmock.h"

#include "fileops/VekTouchFile.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "support/OsFixture.h"
#include "support/RunTable.h"

using testing::ElementsAre;

namespace {

constexpr const char* kOld = "2001-02-03T04:05:06";

struct Touch : ActionFixture, testing::Test {
  Touch() { action->DateTime = *ParseIso8601("2007-03-05T10:00:01"); }

  std::string In(const std::string& name) const { return folder.WindowsPath() + '\\' + name; }
  bool TouchOn(const std::string& spec) {
    action->FileSpec = WideString(In(spec));
    return ActionFixture::Run(*action);
  }
  void Write(const StringList& lines) {
    disk.Write(lines);
    for (const std::string& line : disk.Read()) {
      const std::string file = line.substr(0, line.find('='));
      if (file[0] != '!') SetTime(file, kOld);
    }
  }
  void SetTime(const std::string& name, std::string_view time) {
    const auto set = [&](TDateTime) { return *ParseIso8601(time); };
    ASSERT_TRUE(GetPlatform().entries->ChangeLastWrite(folder.Path(name), set)) << name;
  }
  std::string TimeOf(const std::string& name) {
    std::unique_ptr<OpenFile> file;
    TDateTime time;
    EXPECT_TRUE(GetPlatform().contents->Open(folder.Path(name), OpenMode::Read, ShareMode::DenyNone, file));
    EXPECT_TRUE(file && file->GetLastWrite(time));
    return ToIso8601(time);
  }

  DiskTable disk{folder, GetPlatform()};
  std::unique_ptr<TTouchFilesAction> action = Make<TTouchFilesAction>();
};

TEST_F(Touch, DateAndTimeAreSetTogetherOrApartInStepsOfTwoSeconds) {
  const struct {
    bool date, time;
    const char* wanted;
  } cases[] = {{true, true, "2007-03-05T10:00:00"},
               {true, false, "2007-03-05T04:05:06"},
               {false, true, "2001-02-03T10:00:00"}};
  for (const auto& c : cases) {
    Write({"a.txt="});
    action->TouchDate = c.date;
    action->TouchTime = c.time;
    EXPECT_TRUE(TouchOn("*.txt"));
    EXPECT_EQ(TimeOf("a.txt"), c.wanted);
    EXPECT_EQ(action->FileCount(), 1);
    EXPECT_THAT(Lines(), ElementsAre("Processed : 1 File(s)"));
  }
}

TEST_F(Touch, ReadOnlyFilesAreTouchedAndStayReadOnly) {
  Write({"!a=", "b="});
  action->TouchReadOnly = true;
  EXPECT_TRUE(TouchOn("*"));
  EXPECT_THAT(Lines(), ElementsAre("Processed : 2 File(s)"));
  EXPECT_EQ(TimeOf("a"), "2007-03-05T10:00:00");
  EXPECT_EQ(disk.Read(), (StringList{"!a=", "b="}));
}

// clang-format off
const RunCase kRuns[] = {
    {"ReadOnlyFilesAreSkipped", "FileSpec=%D%\\*", "!a= b=", true, "Processed : 1 File(s)", "!a= b=", "FileCount=1"},
    {"Nothing", "FileSpec=%D%\\*.none", "a=", true, "Processed : 0 File(s)", "a="},
    // The last sub-folder decides.
    {"AFailureInTheFirst", "FileSpec=%D%\\*|Recurse=True", "^a/x= a/y= b/x=", true,
     "Error touching File : %D%\\a\\x|Processed : 1 File(s)", "a/x= a/y= b/x="},
    {"AFailureInTheLast", "FileSpec=%D%\\*|Recurse=True", "a/x= a/y= ^b/x=", false,
     "Error touching File : %D%\\b\\x|Processed : 2 File(s)", "a/x= a/y= b/x="},
    {"NothingToDo", "FileSpec=%D%\\*|TouchDate=False|TouchTime=False", "", false,
     " Touch Date and TouchTime are not set, nothing to do", ""},
    {"NoSpec", "FileSpec=", "", false, "File Spec is blank!", ""},
};
// clang-format on

TEST(TouchRuns, Table) { ExpectRuns<TTouchFilesAction>(kRuns); }

TEST_F(Touch, HiddenFilesAreLeftAlone) {
  Write({".hidden=", "seen="});
  if (!StoresAttributes(folder.Path())) GTEST_SKIP();
  ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path(".hidden"), FileAttribute::Hidden));
  EXPECT_TRUE(TouchOn("*"));
  EXPECT_EQ(TimeOf(".hidden"), kOld);
}

TEST_F(Touch, UseNowChangesTheStoredTime) {
  Write({"a="});
  action->UseNow = true;
  const double before = action->DateTime.days;
  EXPECT_TRUE(TouchOn("a"));
  EXPECT_GT(action->DateTime.days, before);
  EXPECT_GT(TimeOf("a"), "2026");
}

}  // namespace
