#include <algorithm>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/NullHost.h"
#include "textini/VekCreateTextFileAction.h"
#include "textini/VekWriteToTextFileAction.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Errors final : IVekActionValidationError {
  void AddError(std::string_view title, std::string_view message) override {
    lines.push_back(std::string(title) + ": " + std::string(message));
  }
  StringList lines;
};

StringList Problems(TCustomVekAction& action) {
  Errors errors;
  const bool complete = action.Validate(errors);
  EXPECT_EQ(complete, errors.lines.empty());
  return errors.lines;
}

/// What a list says from the given line on.
StringList From(std::string_view first, const StringList& lines) {
  return {std::find(lines.begin(), lines.end(), first), lines.end()};
}

StringList Alias(const TCustomVekAction& action, std::string_view group) {
  StringList lines;
  action.GetPropertyAlias(lines);
  return From(group, lines);
}

StringList Help(const TCustomVekAction& action, std::string_view first) {
  StringList lines;
  action.GetPropertyHelp(lines);
  return From(first, lines);
}

constexpr std::string_view kCreateHelp =
    "FileContents=This text will be written to the file.  Any variables used will be expanded.";
constexpr std::string_view kWriteHelp =
    "NewContent=This text will be written to the file.  Any variables used will be expanded.";

TEST(CreateTextFileAnswers, NameHelpAndTitles) {
  NullHost host;
  const TVekCreateTextFileAction action(host);
  EXPECT_EQ(action.GetActionName(), "Create Text File");
  EXPECT_EQ(action.GetDescription(), "Create Text File");
  EXPECT_EQ(action.GetHelpTopicID(), 3220);
  EXPECT_EQ(action.GetQuickHelpFilename(), "Plugins\\CreateTextFile.html");
  EXPECT_THAT(Alias(action, "[Create Text File]"),
              ElementsAre("[Create Text File]", "FileContents=File Contents",
                          "OverwriteExisting=Overwrite Existing File", "NewFileName=New Filename",
                          "CreateDirectory=Create Directory if required"));
  EXPECT_THAT(Help(action, kCreateHelp),
              ElementsAre(kCreateHelp, "OverwriteExisting=Overwrite existing file if it already exists",
                          "NewFileName=The location and name of the new file",
                          "CreateDirectory=Automatically create any directories if required"));
}

TEST(WriteToTextFileAnswers, NameHelpAndTitles) {
  NullHost host;
  const TVekWriteToTextFileAction action(host);
  EXPECT_EQ(action.GetActionName(), "Write to Text File");
  EXPECT_EQ(action.GetHelpTopicID(), 3230);
  EXPECT_EQ(action.GetQuickHelpFilename(), "Plugins\\WriteToTextFile.html");
  EXPECT_THAT(
      Alias(action, "[Write to Text File]"),
      ElementsAre("[Write to Text File]", "NewContent=New content", "CreateIfNotExists=Create file missing",
                  "FileName=Filename", "WriteToPosition=Write Position"));
  EXPECT_THAT(Help(action, kWriteHelp),
              ElementsAre(kWriteHelp, "CreateIfNotExists=Create the file if it doesn't exist",
                          "NewFileName=The location and name of the file",
                          "WriteToPosition=Specify either Start or End to write the new content to"));
}

TEST(TextFileValidation, AsksForThePathAsStored) {
  NullHost host;
  TVekCreateTextFileAction create(host);
  EXPECT_THAT(Problems(create), ElementsAre("New File Name: New filename has not been set"));
  create.NewFileName = " ";
  EXPECT_THAT(Problems(create), IsEmpty());

  TVekWriteToTextFileAction write(host);
  EXPECT_THAT(Problems(write), ElementsAre("File Name: New filename has not been set"));
  write.FileName = "%UNKNOWN%";
  EXPECT_THAT(Problems(write), IsEmpty());
}

TEST(TextFileDefaults, AreThoseOfTheConstructors) {
  NullHost host;
  const TVekCreateTextFileAction create(host);
  EXPECT_TRUE(create.CreateDirectory);
  EXPECT_FALSE(create.OverwriteExisting);
  const TVekWriteToTextFileAction write(host);
  EXPECT_FALSE(write.CreateIfNotExists);
  EXPECT_EQ(write.WriteToPosition, TVekWriteToPos::toEnd);
}

}  // namespace
