#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/FileAttributes.h"
#include "support/ActionFixture.h"
#include "textini/VekCreateTextFileAction.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct CreateTextFile : ActionFixture, testing::Test {
  bool Create(const std::string& fileName, const std::string& contents) {
    action->NewFileName = fileName;
    action->FileContents = contents;
    return ActionFixture::Run(*action);
  }

  std::unique_ptr<TVekCreateTextFileAction> action = Make<TVekCreateTextFileAction>();
};

TEST_F(CreateTextFile, WritesTheTextByteForByte) {
  for (const std::string text : {"", "no line break", "a\nb\r\nc\r", " \xC3\xA4\xFF "}) {
    action->OverwriteExisting = true;
    EXPECT_TRUE(Create(folder.Path("new.txt"), text));
    EXPECT_EQ(folder.Read("new.txt"), text);
    EXPECT_THAT(Lines(), ElementsAre("File created: " + folder.Path("new.txt")));
  }
}

TEST_F(CreateTextFile, ExpandsNameAndContents) {
  Context().SetVariable("DIR", folder.Path());
  Context().SetVariable("N", int64_t{7});
  EXPECT_TRUE(Create("%DIR%\\f%N%.txt", "n=%N% 100%%"));
  EXPECT_EQ(folder.Read("f7.txt"), "n=7 100%");
  EXPECT_THAT(Lines(), ElementsAre("File created: " + folder.Path() + "\\f7.txt"));
}

TEST_F(CreateTextFile, KeepsAnExistingFileUnlessToldOtherwise) {
  folder.Write("old.txt", "old and longer");
  EXPECT_FALSE(Create(folder.Path("old.txt"), "%NO_SUCH_VARIABLE_ANYWHERE%"));
  EXPECT_THAT(Lines(), ElementsAre("ERROR - File already exists: " + folder.Path("old.txt")));
  EXPECT_THAT(Errors(), IsEmpty());
  EXPECT_EQ(folder.Read("old.txt"), "old and longer");

  action->OverwriteExisting = true;
  EXPECT_TRUE(Create(folder.Path("old.txt"), "new"));
  EXPECT_EQ(folder.Read("old.txt"), "new");
}

TEST_F(CreateTextFile, CreatesMissingFoldersUnlessToldOtherwise) {
  EXPECT_TRUE(Create(folder.Path("a\\b/c.txt"), "x"));
  EXPECT_EQ(folder.Read("a/b/c.txt"), "x");

  action->CreateDirectory = false;
  EXPECT_FALSE(Create(folder.Path("d\\e.txt"), "x"));
  EXPECT_THAT(Lines(), ElementsAre("File creation failed: " + SystemText(Win32Error::PathNotFound)));
  EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST_F(CreateTextFile, ABareNameGoesToTheCurrentFolder) {
  Environment& environment = *GetPlatform().environment;
  const std::string before = environment.CurrentFolder();
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  EXPECT_TRUE(Create("bare.txt", "x"));
  environment.SetCurrentFolder(before);
  EXPECT_THAT(Lines(), ElementsAre("File created: bare.txt"));
  EXPECT_THAT(folder.Names(), ElementsAre("bare.txt"));
}

TEST_F(CreateTextFile, AFolderThatCannotBeMadeEndsTheRun) {
  folder.Write("file", "x");
  EXPECT_FALSE(Create(folder.Path("file\\sub\\new.txt"), "x"));
  ASSERT_EQ(Lines().size(), 1u);
  EXPECT_THAT(Lines()[0], testing::MatchesRegex("Failed to create directory \".*file.sub\": .+\\."));
  EXPECT_EQ(Lines()[0].find("new.txt"), std::string::npos);
}

TEST_F(CreateTextFile, AFileThatCannotBeWrittenIsReported) {
  folder.Write("locked.txt", "kept");
  folder.Write("folder/x", "x");
  ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path("locked.txt"), FileAttribute::ReadOnly));
  action->OverwriteExisting = true;
  for (const char* name : {"locked.txt", "folder"}) {
    EXPECT_FALSE(Create(folder.Path(name), "new")) << name;
    EXPECT_THAT(Lines(), ElementsAre("File creation failed: " + SystemText(Win32Error::AccessDenied)));
  }
  EXPECT_EQ(folder.Read("locked.txt"), "kept");
}

TEST_F(CreateTextFile, ExpansionFailuresAreTheHostsToReport) {
  const struct {
    std::string fileName, contents, title;
  } cases[] = {
      {"%NO_SUCH_VARIABLE_ANYWHERE%", "x", "NewFileName: "},
      {" \t", "x", "NewFileName: "},
      {folder.Path("new.txt"), "%NO_SUCH_VARIABLE_ANYWHERE%", "File Contents: "},
  };
  for (const auto& wanted : cases) {
    EXPECT_FALSE(Create(wanted.fileName, wanted.contents));
    EXPECT_THAT(Lines(), IsEmpty());
    EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith(wanted.title)));
  }
  EXPECT_THAT(folder.Names(), IsEmpty());
}

}  // namespace
