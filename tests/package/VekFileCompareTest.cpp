#include "gmock/gmock.h"

#include "fileops/VekFileCompare.h"
#include "platform/Contents.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "support/ActionFixture.h"
#include "support/OsFixture.h"
#include "support/SystemText.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* kSameDate = "Files have the same date.";
constexpr const char* kSameSize = "Files are of identical size.";
constexpr const char* kSameMD5 = "Files have identical MD5 checksums.";
constexpr const char* kOtherMD5 = "Files have different MD5 checksums.";
constexpr const char* kNone = "No differences found.";

struct FileCompare : ActionFixture, testing::Test {
  FileCompare() {
    for (const auto& [name, text, date] : {std::tuple{"file", "text", "2024-07-01T10:00:00"},
                                           {"same", "text", "2024-07-01T10:00:00"},
                                           {"later", "text", "2024-07-01T11:00:00"},
                                           {"other", "TEXT", "2024-07-01T10:00:00"},
                                           {"longer", "longer", "2024-07-02T10:00:00"}}) {
      folder.Write(name, text);
      std::unique_ptr<OpenFile> file;
      GetPlatform().contents->Open(folder.Path(name), OpenMode::Modify, ShareMode::DenyNone, file);
      EXPECT_TRUE(file->SetLastWrite(*ParseIso8601(date)));
    }
  }

  /// What to compare by as letters: d, s, m.
  bool Compare(const char* with, std::string_view by) {
    action->FileA = folder.Path("file");
    action->FileB = folder.Path(with);
    action->CompareDate = by.find('d') != by.npos;
    action->CompareSize = by.find('s') != by.npos;
    action->CompareMD5 = by.find('m') != by.npos;
    return ActionFixture::Run(*action);
  }
  TVekNextAction Next() {
    auto next = TVekNextAction::naDefault;
    action->GetNextActionSource(false, next);
    return next;
  }
  std::string Day(const char* date) { return GetPlatform().locale->ShortDate(*ParseIso8601(date)); }

  std::unique_ptr<TVekFileCompareAction> action = Make<TVekFileCompareAction>();
};

TEST_F(FileCompare, SaysWhatDiffers) {
  const std::string first = Day("2024-07-01"), second = Day("2024-07-02");
  ASSERT_NE(first, second);
  const std::string otherTime = "Files have different dates (" + first + " vs " + first + ")";
  const std::string otherDay = "Files have different dates (" + first + " vs " + second + ")";
  const std::string otherSize = "Files are different sizes (4 vs 6)";
  const struct {
    const char *with, *by;
    StringList lines;
  } cases[] = {
      {"same", "dsm", {kSameDate, kSameSize, kSameMD5, kNone}},
      {"same", "m", {kSameMD5, kNone}},
      {"other", "ds", {kSameDate, kSameSize, kNone}},
      {"other", "dsm", {kSameDate, kSameSize, kOtherMD5}},
      {"later", "dsm", {otherTime, kSameSize}},
      {"later", "m", {kSameMD5, kNone}},
      {"longer", "dsm", {otherDay, otherSize}},
      {"longer", "sm", {otherSize}},
  };
  for (const auto& wanted : cases) {
    EXPECT_TRUE(Compare(wanted.with, wanted.by));
    StringList lines = wanted.lines;
    lines.insert(lines.begin(),
                 {"Comparing file " + folder.Path("file"), "with file " + folder.Path(wanted.with)});
    EXPECT_EQ(Lines(), lines) << wanted.with << ' ' << wanted.by;
  }
}

TEST_F(FileCompare, TheOutcomeIsTheResultOrGuardsTheChildren) {
  const auto runs = TVekNextAction::naDefault, skips = TVekNextAction::naSkipChildren;
  const struct {
    const char* with;
    bool fail, inverted, result;
    TVekNextAction next;
  } cases[] = {
      {"same", false, false, true, skips}, {"other", false, false, true, runs},
      {"same", false, true, true, runs},   {"other", false, true, true, skips},
      {"same", true, false, false, runs},  {"other", true, false, true, runs},
      {"same", true, true, true, runs},    {"other", true, true, false, runs},
  };
  for (const auto& wanted : cases) {
    action->Fail = wanted.fail;
    action->Inverted = wanted.inverted;
    EXPECT_EQ(Compare(wanted.with, "m"), wanted.result) << wanted.with << wanted.fail << wanted.inverted;
    EXPECT_EQ(Next(), wanted.next) << wanted.with << wanted.fail << wanted.inverted;
  }
}

TEST_F(FileCompare, WhatCannotBeComparedFails) {
  EXPECT_TRUE(Compare("other", "m"));
  EXPECT_FALSE(Compare("missing", "m"));
  EXPECT_THAT(Lines(), ElementsAre("File Doesn't Exist : " + folder.Path("missing")));
  EXPECT_EQ(Next(), TVekNextAction::naSkipChildren);  // nothing is left of the outcome before

  EXPECT_FALSE(Compare("same", ""));
  EXPECT_EQ(Lines().back(),
            "Error : Nothing to compare files by! Choose one or more of date, size or checksum.");

  action->FileB = "%NO_SUCH_VARIABLE_ANYWHERE%";
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith("Second File: ")));
}

TEST_F(FileCompare, AFileThatAnotherProgramHoldsCannotBeRead) {
  const ExclusiveOpen held(folder.Path("same"));
  EXPECT_FALSE(Compare("same", "s"));
  EXPECT_EQ(Lines().back(), "Error reading size of " + folder.Path("same") + " : " +
                                SystemText(Win32Error::SharingViolation));
  EXPECT_FALSE(Compare("same", "m"));
  EXPECT_THAT(Errors(), ElementsAre("Hash of file " + folder.Path("same") + " failed"));
}

}  // namespace
