#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "support/ActionFixture.h"
#include "support/OsFixture.h"
#include "textini/VekWriteToTextFileAction.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr auto kStart = TVekWriteToPos::toStart;
constexpr auto kEnd = TVekWriteToPos::toEnd;

struct WriteToTextFile : ActionFixture, testing::Test {
  bool Write(const std::string& fileName, const std::string& text) {
    action->FileName = fileName;
    action->NewContent = text;
    return ActionFixture::Run(*action);
  }

  std::unique_ptr<TVekWriteToTextFileAction> action = Make<TVekWriteToTextFileAction>();
};

struct WriteCase {
  const char* before;  // null: no file
  const char* text;
  TVekWriteToPos position;
  const char* after;
};

constexpr WriteCase kWriteCases[] = {
    {nullptr, "text", kStart, "text\r\n"},
    {nullptr, "text", kEnd, "text\r\n"},
    {"", "text", kStart, "text\r\n"},
    {"a\r\nb\r\n", "text", kStart, "text\r\na\r\nb\r\n"},
    {"a\r\nb\r\n", "text", kEnd, "a\r\nb\r\ntext\r\n"},
    {"a\nb\rc", "text", kEnd, "a\r\nb\r\nc\r\ntext\r\n"},  // no line break at the end of the file
    {"a\r\n\r\n", "text", kEnd, "a\r\n\r\ntext\r\n"},      // an empty line at its end
    {"a", "x\ny", kStart, "x\r\ny\r\na\r\n"},
    {"a", "x\r\ny\rz", kEnd, "a\r\nx\r\ny\r\nz\r\n"},
    {"a", "x\r\n", kEnd, "a\r\nx\r\n\r\n"},
    {"a", "", kStart, "\r\na\r\n"},
    {"a", "", kEnd, "a\r\n\r\n"},
    {"\xFF", " \xC3\xA4 ", kEnd, "\xFF\r\n \xC3\xA4 \r\n"},
};

TEST_F(WriteToTextFile, AddsTheTextAsLines) {
  action->CreateIfNotExists = true;
  for (size_t i = 0; i < std::size(kWriteCases); ++i) {
    const WriteCase& wanted = kWriteCases[i];
    const std::string name = "f" + std::to_string(i);
    if (wanted.before) folder.Write(name, wanted.before);
    action->WriteToPosition = wanted.position;
    EXPECT_TRUE(Write(folder.Path(name), wanted.text)) << name;
    EXPECT_EQ(folder.Read(name), wanted.after) << name;
    EXPECT_THAT(Lines(), ElementsAre("File updated: " + folder.Path(name)));
  }
}

TEST_F(WriteToTextFile, AppendsAgainAndAgain) {
  folder.Write("log.txt", "");
  for (const char* text : {"one", "%FULL%", "three"}) {
    Context().SetVariable("FULL", std::string("two"));
    EXPECT_TRUE(Write(folder.Path("log.txt"), text));
  }
  EXPECT_EQ(folder.Read("log.txt"), "one\r\ntwo\r\nthree\r\n");
}

TEST_F(WriteToTextFile, AMissingFileIsAnErrorUnlessItMayBeCreated) {
  EXPECT_FALSE(Write(folder.Path("missing.txt"), "%NO_SUCH_VARIABLE_ANYWHERE%"));
  EXPECT_THAT(Lines(), ElementsAre("ERROR - File doesn't exist: " + folder.Path("missing.txt")));
  EXPECT_THAT(Errors(), IsEmpty());
  EXPECT_THAT(folder.Names(), IsEmpty());

  action->CreateIfNotExists = true;
  EXPECT_FALSE(Write(folder.Path("no\\such\\folder.txt"), "text"));
  EXPECT_THAT(Lines(), ElementsAre("File edit failed: " + SystemText(Win32Error::PathNotFound)));
}

TEST_F(WriteToTextFile, AFileThatCannotBeWrittenIsReported) {
  folder.Write("locked.txt", "kept");
  folder.Write("folder/x", "x");
  ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path("locked.txt"), FileAttribute::ReadOnly));
  action->CreateIfNotExists = true;
  for (const char* name : {"locked.txt", "folder"}) {
    EXPECT_FALSE(Write(folder.Path(name), "new")) << name;
    EXPECT_THAT(Lines(), ElementsAre("File edit failed: " + SystemText(Win32Error::AccessDenied)));
  }
  EXPECT_EQ(folder.Read("locked.txt"), "kept");
}

TEST_F(WriteToTextFile, AFileThatAnotherProgramHoldsIsReported) {
  folder.Write("held.txt", "kept");
  {
    const ExclusiveOpen held(folder.Path("held.txt"));
    EXPECT_FALSE(Write(folder.Path("held.txt"), "new"));
    EXPECT_THAT(Lines(), ElementsAre("File edit failed: " + SystemText(Win32Error::SharingViolation)));
  }
  EXPECT_EQ(folder.Read("held.txt"), "kept");
}

TEST_F(WriteToTextFile, ExpansionFailuresAreTheHostsToReport) {
  folder.Write("file.txt", "old");
  const struct {
    std::string fileName, text, title;
  } cases[] = {
      {"%NO_SUCH_VARIABLE_ANYWHERE%", "x", "FileName: "},
      {"", "x", "FileName: "},
      {folder.Path("file.txt"), "$(", "Content: "},
  };
  for (const auto& wanted : cases) {
    EXPECT_FALSE(Write(wanted.fileName, wanted.text));
    EXPECT_THAT(Lines(), IsEmpty());
    EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith(wanted.title)));
  }
  EXPECT_EQ(folder.Read("file.txt"), "old");
}

}  // namespace
