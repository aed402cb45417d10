#include "fileops/VekDeleteFilesAction.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "support/RunTable.h"

namespace {

const std::string kAll = "FileSpec=%D%\\*.tmp", kDeleting = "Deleting files : %D%\\*.tmp";
const std::string kLenient = "FailIfNoFile=False|" + kAll;
const std::string kFailed = kDeleting + "| --> Error Deleting File : %D%\\";

// clang-format off
const RunCase kRuns[] = {
    {"TheMatches", kAll, "a.tmp=A B.TMP=B c.txt=C", true, kDeleting + "|2 Files Deleted.", "c.txt=C", "FilesAffected=2"},
    {"StopsAtAReadOnlyFileInTheOrderOfUpperCasedNames", kAll, "a.tmp=A !B.tmp=B c.tmp=C", false,
     kFailed + "B.tmp| --> {5}|1 Files Deleted.", "!B.tmp=B c.tmp=C"},
    {"ReadOnlyOnesWhenToldTo", kAll + "|DeleteReadOnly=True", "!a.tmp=A", true, kDeleting + "|1 Files Deleted.", ""},
    {"HiddenFilesGoWithoutBeingCleared", kAll, ".hidden.tmp=H", true, kDeleting + "|1 Files Deleted.", ""},
    {"NoFolders", kAll, "sub.tmp/inner.tmp=x", false, kDeleting + "|0 Files Deleted.", "sub.tmp/inner.tmp=x"},
    {"NoFileIsNoFailureWhenToldSo", kLenient, "", true, kDeleting + "|0 Files Deleted.", ""},
    {"NoFolderIsNoneEither", "FailIfNoFile=False|FileSpec=%D%\\no\\*", "", true, "Deleting files : %D%\\no\\*|0 Files Deleted.", ""},
    {"ABlankSpecSaysNothing", "FileSpec= \t", "", false, "", ""},
    {"ABlankSpecMayBeNoFailure", "FailIfNoFile=False|FileSpec= \t", "", true, "", ""},
    {"AnUnknownVariable", "FileSpec=%X%\\*.tmp", "", false,
     "Unable to Delete file : |--> " + kUnknownX, "", "FilesAffected=0"},
    {"ExpandsAndTrims", "FileSpec=  %d%\\a.TMP ", "a.tmp=A", true, "Deleting files : %D%\\a.TMP|1 Files Deleted.", ""},
    {"ARefusalWithoutACode", kLenient, "a.tmp=A", true, kDeleting + "|0 Files Deleted.", "a.tmp=A", "", "", "entries.Delete * 0"},
    {"ASearchThatBreaksOff", kAll, "a.tmp=A", true, kDeleting + "|1 Files Deleted.", "", "",
     "Cannot search %D%\\: {31}", "search.Result * 31"},
};
// clang-format on

TEST(DeleteFiles, Runs) { ExpectRuns<TDeleteFilesAction>(kRuns); }

struct DeleteSomeFiles : ActionFixture, testing::Test {
  DeleteSomeFiles() { action->SetFileSpec(folder.WindowsPath() + "\\*.tmp"); }
  void Write(const char* name, uint32_t attributes) {
    folder.Write(name, "x");
    ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path(name), attributes));
  }
  std::unique_ptr<TDeleteFilesAction> action = Make<TDeleteFilesAction>();
};

TEST_F(DeleteSomeFiles, ClearsWhatItIsToldToAndNeverMatchesSystemFiles) {
  Write("hidden.tmp", FileAttribute::ReadOnly | FileAttribute::Hidden);
  Write("kept.tmp", FileAttribute::System | FileAttribute::Hidden);
  action->DeleteReadOnly = action->DeleteHidden = true;
  EXPECT_TRUE(ActionFixture::Run(*action));
  EXPECT_EQ(folder.Names(), StringList{"kept.tmp"});
  EXPECT_EQ(Events().events.size(), 1u) << "one status message";
}

TEST_F(DeleteSomeFiles, ASuccessThatLeavesTheFileIsAnError) {
  folder.Write("a.tmp");
  fault = [&](const PlatformCall& call) {
    return call.operation == "entries.Delete" ? std::optional(SysResult()) : std::nullopt;
  };
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_EQ(Lines()[1] + Lines()[2], " --> Error Deleting File : " + folder.WindowsPath() + "\\a.tmp --> " +
                                         SystemText(Win32Error::Success));
}

}  // namespace
