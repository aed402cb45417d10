#include "gmock/gmock.h"

#include "platform/Environment.h"
#include "support/RunTable.h"
#include "textini/VekCreateTextFileAction.h"

namespace {

const std::string kNew = "NewFileName=%D%\\a|FileContents=", kOver = "OverwriteExisting=True|" + kNew;
const std::string kCreated = "File created: %D%\\a", kFailed = "File creation failed: ";

// clang-format off
const RunCase kRuns[] = {
    {"Empty", kNew, "", true, kCreated, "a="},
    {"Bytes", kNew + "a\nb\r\nc\r", "", true, kCreated, "a=a\nb\r\nc\r"},
    {"BytesThatAreNoText", kNew + " \xC3\xA4\xFF ", "", true, kCreated, "a=~\xC3\xA4\xFF~"},
    {"Expanded", "$N=7|NewFileName=%D%\\f%N%|FileContents=n=%N% 100%%", "", true, "File created: %D%\\f7", "f7=n=7~100%"},
    {"AnExistingFileIsKept", kNew + "%NO_SUCH_VARIABLE%", "a=old", false, "ERROR - File already exists: %D%\\a", "a=old"},
    {"OrOverwritten", kOver + "new", "a=older", true, kCreated, "a=new"},
    {"MissingFoldersAreMade", "NewFileName=%D%\\x\\y/c|FileContents=x", "", true, "File created: %D%\\x\\y/c", "x/y/c=x"},
    {"OrMissed", "NewFileName=%D%\\x\\c|CreateDirectory=False", "", false, kFailed + "{3}", ""},
    {"ReadOnly", kOver + "new", "!a=kept", false, kFailed + "{5}", "!a=kept"},
    {"AFolder", kOver + "new", "a/x=x", false, kFailed + "{5}", "a/x=x"},
    {"AnUnknownName", "NewFileName=%X%", "", false, "", "", "", "NewFileName: " + kUnknownX},
    {"ABlankName", "NewFileName= \t", "", false, "", "", "", "NewFileName: the text is blank"},
    {"UnknownContents", kNew + "%X%", "", false, "", "", "", "File Contents: " + kUnknownX},
};
// clang-format on

TEST(CreateTextFile, Runs) { ExpectRuns<TVekCreateTextFileAction>(kRuns); }

struct CreateInFolder : ActionFixture, testing::Test {
  bool Create(const std::string& fileName) {
    action->NewFileName = fileName;
    return ActionFixture::Run(*action);
  }
  std::unique_ptr<TVekCreateTextFileAction> action = Make<TVekCreateTextFileAction>();
};

TEST_F(CreateInFolder, ABareNameGoesToTheCurrentFolder) {
  Environment& environment = *GetPlatform().environment;
  const std::string before = environment.CurrentFolder();
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  EXPECT_TRUE(Create("bare.txt"));
  environment.SetCurrentFolder(before);
  EXPECT_EQ(Lines(), StringList{"File created: bare.txt"});
  EXPECT_EQ(folder.Names(), StringList{"bare.txt"});
}

TEST_F(CreateInFolder, AFolderThatCannotBeMadeEndsTheRun) {
  folder.Write("file", "x");
  EXPECT_FALSE(Create(folder.Path("file\\sub\\new.txt")));
  EXPECT_THAT(Lines(), testing::ElementsAre(
                           testing::MatchesRegex("Failed to create directory \".*file.sub\": .+\\.")));
}

}  // namespace
