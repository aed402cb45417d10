#include "gmock/gmock.h"

#include "fileops/VekFileSetCopyMove.h"
#include "host/project/Project.h"
#include "pages/VekFileSetCopyMoveFrame.h"
#include "support/ActionFixture.h"
#include "support/NullHost.h"
#include "support/RunTable.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

using enum TCopyOverwriteMode;

/// The action on the file set "Set": all that is below the folder "in", or whatever a test makes of it.
struct FileSetRuns : ActionFixture {
  FileSetRuns() {
    Context().SetVariable("D", folder.WindowsPath());
    action->SetFileSetName("Set");
    action->DestinationFolder = "%D%\\out";
    Declare("%D%\\in");
  }
  ~FileSetRuns() { Context().SetProject(nullptr); }

  void Declare(const std::string& baseDirectory) {
    project.fileSets = {
        {.name = "Set", .baseDirectory = baseDirectory, .includes = {"**\\*"}, .excludes = {}}};
    Context().SetProject(&project);
  }
  bool Perform() { return ActionFixture::Run(*action); }

  /// What is logged, with the system's texts and the folder put in.
  StringList Wanted(const StringList& lines) const { return disk.Lines(lines); }

  Project project;
  std::unique_ptr<TVekFileSetCopyMoveAction> action = Make<TVekFileSetCopyMoveAction>();
  const DiskTable disk{folder, GetPlatform()};
};

struct FileSetCopy : FileSetRuns, testing::Test {};

TEST_F(FileSetCopy, ABaseWithATrailingDelimiterIsTheSame) {
  disk.Write({"in/sub/b=B"});
  action->RecreateHierarchy = true;
  for (const char* base : {"%D%\\in\\", "%D%/in/"}) {
    Declare(base);
    action->OverwriteMode = owOverwrite;
    action->DestinationFolder = "%D%/out/";
    EXPECT_TRUE(Perform());
    EXPECT_THAT(disk.Read(), ElementsAre("in/sub/b=B", "out/sub/b=B")) << base;
  }
}

const std::string kSet = "FileSetName=Set|DestinationFolder=%D%\\out|OverwriteMode=";
const std::string kCopy = "Copying 1 files...|Copying %D%\\in\\a to %D%\\out\\a...";
const std::string kMove = "Moving 1 files...|Moving %D%\\in\\a to %D%\\out\\a...";
const std::string kOverwriting = "|Overwriting destination file %D%\\out\\a";
const std::string kExists = "Error : Destination file %D%\\out\\a already exists.";
const std::string kUnexpanded = "FileSetName=Set|DestinationFolder=";

// clang-format off
const RunCase kRuns[] = {
    {"AllIntoOneFolder", kSet + "owFail", "in/a=A in/sub/b=B", true,
     "Copying 2 files...|Copying %D%\\in\\a to %D%\\out\\a...|Copying %D%\\in\\sub\\b to %D%\\out\\b...", "in/a=A in/sub/b=B out/a=A out/b=B"},
    {"MoveWithTheHierarchy", kSet + "owFail|Move=True|RecreateHierarchy=True", "in/a=A in/sub/deep/b=B", true,
     "Moving 2 files...|Moving %D%\\in\\a to %D%\\out\\a...|Moving %D%\\in\\sub\\deep\\b to %D%\\out\\sub\\deep\\b...",
     "in/sub/deep/ out/a=A out/sub/deep/b=B"},
    {"AnEmptySetIsDone", kSet + "owFail", "in/", true, "Copying 0 files...", "in/"},
    {"KeepsAttributes", kSet + "owFail", "!in/a=A", true, kCopy, "!in/a=A !out/a=A"},
    {"ClearsAttributes", kSet + "owFail|ClearAttributes=True", "!in/a=A", true, kCopy, "!in/a=A out/a=A"},
    {"AnUnknownDestination", kUnexpanded + "%X%", "in/a=A", false, "", "in/a=A", "", "Destination Folder: " + kUnknownX},
    {"ABlankDestination", kUnexpanded + " ", "in/a=A", false, "", "in/a=A", "", "Destination Folder: the text is blank"},
    {"AMoveThatFailsIsSaidToBeACopy", kSet + "owFail|Move=True", "in/a=A", false, kMove, "in/a=A out/", "",
     "Error : Unable to copy file. Received {17}", "entries.Move * 17"},
    {"AttributesThatCannotBeWritten", kSet + "owReadOnly", "in/a=A !out/a=old", false, kCopy + kOverwriting, "in/a=A !out/a=old", "",
     "Error : Unable to write to destination file %D%\\out\\a. {19}", "entries.SetAttributes * 19"},
    {"AttributesThatCannotBeCleared", kSet + "owReadOnly|ClearAttributes=True", "in/a=A", false, kCopy, "in/a=A out/a=A", "",
     "Error : Could not clear attributes on destination file. Received {19}", "entries.SetAttributes * 19"},
    {"Fail", kSet + "owFail", "in/a=A out/a=old", false, kCopy, "in/a=A out/a=old", "", kExists},
    {"MoveFail", kSet + "owFail|Move=True", "in/a=A out/a=old", false, kMove, "in/a=A out/a=old", "", kExists},
    {"Ignore", kSet + "owIgnore", "in/a=A !out/a=old", true,
     kCopy + "|(Destination file already exists. Skipping.)", "in/a=A !out/a=old"},
    {"Overwrite", kSet + "owOverwrite", "in/a=A out/a=old", true, kCopy + kOverwriting, "in/a=A out/a=A"},
    {"MoveOverwrite", kSet + "owOverwrite|Move=True", "in/a=A out/a=old", true, kMove + kOverwriting, "in/ out/a=A"},
    {"OverwriteLeavesReadOnly", kSet + "owOverwrite", "in/a=A !out/a=old", false,
     kCopy + kOverwriting, "in/a=A !out/a=old", "", "Error : Destination file %D%\\out\\a is read only."},
    {"ReadOnly", kSet + "owReadOnly", "in/a=A !out/a=old", true, kCopy + kOverwriting, "in/a=A out/a=A"},
    {"ReadOnlyTakesWritableOnes", kSet + "owReadOnly", "in/a=A out/a=old", true, kCopy + kOverwriting, "in/a=A out/a=A"},
    {"MoveReadOnlyMakesWritableAndFails", kSet + "owReadOnly|Move=True", "in/a=A !out/a=old", false,
     kMove + kOverwriting, "in/a=A out/a=old", "", "Error : Unable to copy file. Received {183}"},
    {"AFolderThatCannotBeMade", kSet + "owFail", "in/a=A out=file", false, kCopy, "in/a=A out=file", "",
     "Error : Unable to copy file. Received {3}"},
};
// clang-format on

TEST(FileSetCopyRuns, Table) { ExpectRuns<TVekFileSetCopyMoveAction, FileSetRuns>(kRuns); }

TEST_F(FileSetCopy, TheListIsRebuiltWhenAsked) {
  disk.Write({"in/a=A", "out/"});
  EXPECT_TRUE(Perform());
  disk.Write({"in/b=B"});
  action->OverwriteMode = owIgnore;
  EXPECT_TRUE(Perform());
  EXPECT_THAT(Lines(), Contains("Copying 1 files..."));
  action->RefreshBefore = true;
  EXPECT_TRUE(Perform());
  EXPECT_EQ(Lines()[0], "Refreshing file list...");
  EXPECT_EQ(Lines()[1], "Copying 2 files...");
  EXPECT_EQ(folder.Read("out/b"), "B");
}

TEST_F(FileSetCopy, MissingFilesAreSkippedOrEndTheRun) {
  disk.Write({"in/a=A", "in/b=B"});
  EXPECT_TRUE(Perform());
  GetPlatform().entries->Delete(folder.Path("in/a"));
  action->OverwriteMode = owOverwrite;
  EXPECT_TRUE(Perform());
  EXPECT_EQ(Lines()[1], Wanted({"Skipping file not found : %D%\\in\\a"})[0]);
  EXPECT_EQ(Lines().size(), 4u);  // and b is copied
  action->FailIfFileNotFound = true;
  EXPECT_FALSE(Perform());
  EXPECT_EQ(Errors(), Wanted({"File not found : %D%\\in\\a"}));
  EXPECT_THAT(Lines(), ElementsAre("Copying 2 files..."));
}

/// A file set of any files at all.
struct ListedFiles final : IVekFileSet {
  StringList files;
  std::string base;

  void Refresh() override {}
  uint64_t GetTotalSize() override { return 0; }
  StringList GetIncludes() override { return {}; }
  std::string GetBaseDirectory() override { return base; }
  std::string GetFileList(std::string_view separator) override { return JoinLines(files, separator); }
};

/// The action with a set in hand, for sets that no project can declare.
class TListedFilesAction final : public TCustomVekFileSetCopyMoveAction {
 public:
  using TCustomVekFileSetCopyMoveAction::TCustomVekFileSetCopyMoveAction;
  const ActionClass& ClassType() const override { return kClass; }
  ListedFiles set;

 protected:
  bool Execute() override { return ExecuteFileSet(set); }
};

TEST_F(FileSetCopy, TheFirstOccurrenceOfTheBaseIsExchanged) {
  const std::string outside =
      " not contained within FileSet base directory. Cannot recreate hierarchy. File "
      "will be copied to root of target directory.";
  const struct {
    std::string file, base, destination;
    bool isOutside = false;
  } cases[] = {
      {"C:\\src\\x\\a", "C:\\src", "T\\x\\a"},
      {"C:\\src\\x\\a", "C:\\src\\", "T\\x\\a"},
      {"C:\\src/x/a", "C:\\src", "T\\x\\a"},
      {"D:\\a\\C:\\src\\C:\\src\\a", "C:\\src", "D:\\a\\T\\C:\\src\\a"},
      {"C:\\SRC\\C:\\src\\a", "C:\\src", "T\\C:\\src\\a"},  // found in its own case, exchanged in any
      {"C:\\SRC\\a", "C:\\src", "T\\a", true},
      {"D:\\other\\a", "C:\\src", "T\\a", true},
      {"C:\\srcs\\a", "C:\\src", "C:\\srcs\\a"},  // it occurs, but not as a folder
      {"C:\\\xC3\xA4\\a", "C:\\\xC3\xA4", "T\\a"},
  };
  std::string_view present;
  fault = [&present](const PlatformCall& call) -> std::optional<SysResult> {
    const bool isThere = call.isQuestion && NamePart(call.path) == present;
    return isThere || call.operation == "folders.CreateWithParents" ? std::optional(SysResult())
                                                                    : std::nullopt;
  };
  const auto action = Make<TListedFilesAction>();
  action->OverwriteMode = owIgnore;
  action->RecreateHierarchy = true;
  action->DestinationFolder = "T\\";
  for (const auto& wanted : cases) {
    action->set.files = {wanted.file};
    action->set.base = wanted.base;
    present = NamePart(wanted.file);
    ActionFixture::Run(*action);
    EXPECT_THAT(Lines(), Contains("Copying " + wanted.file + " to " + wanted.destination + "..."));
    EXPECT_THAT(Lines(), wanted.isOutside ? testing::Matcher<StringList>(Contains(wanted.file + outside))
                                          : Not(Contains(wanted.file + outside)));
  }
}

TEST_F(FileSetCopy, NamesMayHoldLineBreaksOfOtherKinds) {
  const auto action = Make<TListedFilesAction>();
  action->set.files = {"a\nb", "c\rd"};
  action->set.base = action->DestinationFolder = "T";
  ActionFixture::Run(*action);
  EXPECT_THAT(Lines(), ElementsAre("Copying 2 files...", "Skipping file not found : a\nb",
                                   "Skipping file not found : c\rd"));
}

TEST_F(FileSetCopy, MovesReplaceInOneModeOnly) {
  disk.Write({"in/a=A"});
  for (const auto mode : {owFail, owOverwrite, owReadOnly, owIgnore}) {
    int transfers = 0;
    fault = [&](const PlatformCall& call) -> std::optional<SysResult> {
      if (!call.copy && !call.progress) return {};
      ++transfers;
      EXPECT_TRUE(!call.copy || call.copy->failIfExists == (mode == owFail));
      EXPECT_TRUE(!call.progress || call.bits == (mode == owOverwrite ? 11u : 10u));
      return SysResult();
    };
    action->OverwriteMode = mode;
    for (const bool move : {true, false}) {
      action->Move = move;
      EXPECT_TRUE(Perform());
    }
    EXPECT_EQ(transfers, 2);
  }
}

TEST_F(FileSetCopy, ProgressCountsTheFinishedFiles) {
  disk.Write({"in/a=1234567", "in/b=12", "in/c=1"});
  fault = [](const PlatformCall& call) -> std::optional<SysResult> {
    if (!call.copy && !call.progress) return {};
    const std::string_view name = NamePart(call.path);
    const uint64_t size = name == "a" ? 7 : name == "b" ? 2 : 1;
    for (const uint64_t done : {uint64_t{0}, size}) {
      if (call.copy) call.copy->progress(done, size);
    }
    return SysResult();
  };
  EXPECT_TRUE(Perform());
  const auto line = [&](const std::string& verb, const std::string& name, int percent) {
    return Wanted({"progress  " + verb + " %D%\\in\\" + name + " to %D%\\out\\" + name + "... " +
                   std::to_string(percent)})[0];
  };
  EXPECT_THAT(Events().Of("progress"),
              ElementsAre(line("Copying", "a", 0), line("Copying", "a", 70), line("Copying", "b", 70),
                          line("Copying", "b", 90), line("Copying", "c", 90), line("Copying", "c", 100)));
  action->Move = true;
  EXPECT_TRUE(Perform());
  EXPECT_THAT(Events().Of("progress"),
              ElementsAre(line("Moving", "a", 0), line("Moving", "b", 70), line("Moving", "c", 90)));
}

TEST_F(FileSetCopy, TerminationStopsTheCopyAndTheLoop) {
  disk.Write({"in/a=A", "in/b=B"});
  fault = [this](const PlatformCall& call) -> std::optional<SysResult> {
    if (!call.copy) return {};
    EXPECT_FALSE(*call.copy->cancel);
    action->TerminateAction();
    EXPECT_TRUE(*call.copy->cancel);
    return SysResult();  // this copy was through before it looked
  };
  for (int run = 1; run <= 2; ++run) {
    EXPECT_FALSE(Perform());
    EXPECT_EQ(Lines(),
              Wanted({"Copying 2 files...", "Copying %D%\\in\\a to %D%\\out\\a...", "Terminating..."}));
    EXPECT_THAT(Errors(), IsEmpty());
  }
  EXPECT_TRUE(action->CanTerminate());
}

TEST(FileSetCopyPage, WritesWhatItShows) {
  NullHost host;
  TVekFileSetCopyMoveAction action(host);
  action.SetFileSetName("Sources");
  TFileSetCopyMoveFrame page;
  page.ReadActionData(action);
  auto& name = dynamic_cast<TEdit&>(*page.FindControl("txtFileSetName"));
  EXPECT_EQ(name.Text(), "Sources");
  name.Enter("Others");
  dynamic_cast<TRadioButton&>(*page.FindControl("rbMove")).Click();
  dynamic_cast<TComboBox&>(*page.FindControl("cboOverwriteMode")).Choose(2);
  page.WriteActionData(action);
  EXPECT_EQ(action.FileSetName(), "Others");
  EXPECT_TRUE(action.Move);
  EXPECT_EQ(action.OverwriteMode, owReadOnly);
}

}  // namespace
