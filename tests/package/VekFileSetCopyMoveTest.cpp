#include <algorithm>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fileops/VekFileSetCopyMove.h"
#include "host/project/Project.h"
#include "pages/VekFileSetCopyMoveFrame.h"
#include "support/ActionFixture.h"
#include "support/DiskTable.h"
#include "support/FailingFiles.h"
#include "support/NullHost.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

using enum TCopyOverwriteMode;

/// The action on the file set "Set": all that is below the folder "in", or whatever a test makes of it.
struct FileSetRuns : ActionFixture {
  explicit FileSetRuns(const Wrap& wrap = {}) : ActionFixture(wrap) {
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
  StringList Progress() {
    StringList events = Events().events;
    std::erase_if(events, [](const std::string& event) { return !event.starts_with("progress"); });
    return events;
  }

  Project project;
  std::unique_ptr<TVekFileSetCopyMoveAction> action = Make<TVekFileSetCopyMoveAction>();
  const DiskTable disk{folder, GetPlatform()};
};

struct FileSetCopy : FileSetRuns, testing::Test {};

struct FileSetCopyFailing : testing::Test {
  std::unique_ptr<FailingFiles> files;
  FileSetRuns runs{[this](const Platform& real) {
    files = std::make_unique<FailingFiles>(real);
    return files->In(real);
  }};
};

TEST_F(FileSetCopy, PutsAllFilesIntoOneFolder) {
  disk.Write({"in/a=A", "in/sub/b=B"});
  EXPECT_TRUE(Perform());
  EXPECT_EQ(Lines(), Wanted({"Copying 2 files...", "Copying %D%\\in\\a to %D%\\out\\a...",
                             "Copying %D%\\in\\sub\\b to %D%\\out\\b..."}));
  EXPECT_THAT(disk.Read(), ElementsAre("in/a=A", "in/sub/b=B", "out/a=A", "out/b=B"));
}

TEST_F(FileSetCopy, MovesAndRecreatesTheHierarchy) {
  disk.Write({"in/a=A", "in/sub/deep/b=B"});
  action->Move = true;
  action->RecreateHierarchy = true;
  EXPECT_TRUE(Perform());
  EXPECT_EQ(Lines(), Wanted({"Moving 2 files...", "Moving %D%\\in\\a to %D%\\out\\a...",
                             "Moving %D%\\in\\sub\\deep\\b to %D%\\out\\sub\\deep\\b..."}));
  EXPECT_THAT(disk.Read(), ElementsAre("in/sub/deep/", "out/a=A", "out/sub/deep/b=B"));
}

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

/// What a destination that exists comes to; "old" is read-only where the line says so.
struct ExistingCase {
  const char* name;
  TCopyOverwriteMode mode;
  bool move;
  const char* before;
  StringList lines;  // after "... 1 files..." and the line of the file
  const char* error;
  StringList after;
};

void PrintTo(const ExistingCase& testCase, std::ostream* stream) { *stream << testCase.name; }

const std::string kOverwriting = "Overwriting destination file %D%\\out\\a";

const ExistingCase kExisting[] = {
    {"Fail",
     owFail,
     false,
     "out/a=old",
     {},
     "Error : Destination file %D%\\out\\a already exists.",
     {"in/a=A", "out/a=old"}},
    {"MoveFail",
     owFail,
     true,
     "out/a=old",
     {},
     "Error : Destination file %D%\\out\\a already exists.",
     {"in/a=A", "out/a=old"}},
    {"Ignore",
     owIgnore,
     false,
     "!out/a=old",
     {"(Destination file already exists. Skipping.)"},
     nullptr,
     {"in/a=A", "!out/a=old"}},
    {"Overwrite", owOverwrite, false, "out/a=old", {kOverwriting}, nullptr, {"in/a=A", "out/a=A"}},
    {"MoveOverwrite", owOverwrite, true, "out/a=old", {kOverwriting}, nullptr, {"in/", "out/a=A"}},
    {"OverwriteLeavesReadOnly",
     owOverwrite,
     false,
     "!out/a=old",
     {kOverwriting},
     "Error : Destination file %D%\\out\\a is read only.",
     {"in/a=A", "!out/a=old"}},
    {"ReadOnly", owReadOnly, false, "!out/a=old", {kOverwriting}, nullptr, {"in/a=A", "out/a=A"}},
    {"ReadOnlyTakesWritableOnes",
     owReadOnly,
     false,
     "out/a=old",
     {kOverwriting},
     nullptr,
     {"in/a=A", "out/a=A"}},
    {"MoveReadOnlyMakesWritableAndFails",
     owReadOnly,
     true,
     "!out/a=old",
     {kOverwriting},
     "Error : Unable to copy file. Received {183}",
     {"in/a=A", "out/a=old"}},
};

struct FileSetExisting : testing::TestWithParam<ExistingCase> {};

TEST_P(FileSetExisting, Run) {
  const ExistingCase& wanted = GetParam();
  FileSetRuns runs;
  runs.disk.Write({"in/a=A", wanted.before});
  runs.action->OverwriteMode = wanted.mode;
  runs.action->Move = wanted.move;
  EXPECT_EQ(runs.Perform(), !wanted.error);
  const std::string verb = wanted.move ? "Moving " : "Copying ";
  StringList lines{verb + "1 files...", verb + "%D%\\in\\a to %D%\\out\\a..."};
  lines.insert(lines.end(), wanted.lines.begin(), wanted.lines.end());
  EXPECT_EQ(runs.Lines(), runs.Wanted(lines));
  EXPECT_EQ(runs.Errors(), wanted.error ? runs.Wanted({wanted.error}) : StringList());
  EXPECT_EQ(runs.disk.Read(), wanted.after);
}

INSTANTIATE_TEST_SUITE_P(Table, FileSetExisting, testing::ValuesIn(kExisting),
                         [](const auto& info) { return info.param.name; });

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

TEST_F(FileSetCopy, AnEmptySetIsDone) {
  disk.Write({"in/"});
  EXPECT_TRUE(Perform());
  EXPECT_THAT(Lines(), ElementsAre("Copying 0 files..."));
  EXPECT_THAT(disk.Read(), ElementsAre("in/"));
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

TEST_F(FileSetCopy, ClearsAttributes) {
  disk.Write({"!in/a=A"});
  for (const bool clear : {false, true}) {
    action->ClearAttributes = clear;
    action->OverwriteMode = owReadOnly;
    EXPECT_TRUE(Perform());
    EXPECT_THAT(disk.Read(), Contains(clear ? "out/a=A" : "!out/a=A"));
  }
}

TEST_F(FileSetCopy, WhatCannotBeExpandedIsReported) {
  disk.Write({"in/a=A"});
  const struct {
    const char *destination, *error;
  } cases[] = {{"%NO_SUCH_VARIABLE%", "Destination Folder: "}, {" ", "Destination Folder: "}};
  for (const auto& wanted : cases) {
    action->DestinationFolder = wanted.destination;
    EXPECT_FALSE(Perform());
    EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith(wanted.error)));
    EXPECT_THAT(Lines(), IsEmpty());
  }
}

TEST_F(FileSetCopy, AFolderThatCannotBeMadeEndsTheRun) {
  disk.Write({"in/a=A", "in/b=B", "out=file"});
  EXPECT_FALSE(Perform());
  EXPECT_EQ(Errors(), Wanted({"Error : Unable to copy file. Received {3}"}));
  EXPECT_EQ(Lines().size(), 2u);
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

TEST_F(FileSetCopyFailing, TheFirstOccurrenceOfTheBaseIsExchanged) {
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
  files->makesNoFolders = true;
  const auto action = runs.Make<TListedFilesAction>();
  action->OverwriteMode = owIgnore;
  action->RecreateHierarchy = true;
  action->DestinationFolder = "T\\";
  for (const auto& wanted : cases) {
    action->set.files = {wanted.file};
    action->set.base = wanted.base;
    files->present = NamePart(wanted.file);
    static_cast<ActionFixture&>(runs).Run(*action);
    EXPECT_THAT(runs.Lines(), Contains("Copying " + wanted.file + " to " + wanted.destination + "..."));
    EXPECT_THAT(runs.Lines(), wanted.isOutside ? testing::Matcher<StringList>(Contains(wanted.file + outside))
                                               : Not(Contains(wanted.file + outside)));
  }
}

TEST_F(FileSetCopyFailing, NamesMayHoldLineBreaksOfOtherKinds) {
  const auto action = runs.Make<TListedFilesAction>();
  action->set.files = {"a\nb", "c\rd"};
  action->set.base = action->DestinationFolder = "T";
  static_cast<ActionFixture&>(runs).Run(*action);
  EXPECT_THAT(runs.Lines(), ElementsAre("Copying 2 files...", "Skipping file not found : a\nb",
                                        "Skipping file not found : c\rd"));
}

TEST_F(FileSetCopyFailing, SystemErrorsEndTheRun) {
  const struct {
    bool move;
    const char* error;
  } cases[] = {{false, "Error : Unable to copy file. Received {112}"},
               {true, "Error : Unable to copy file. Received {17}"}};
  runs.disk.Write({"in/a=A", "in/b=B", "in/c=C"});
  files->copying = [](std::string_view name, const CopyOptions&) -> FailingFiles::Answer {
    if (name == "b") return SysResult::Failure(Win32Error::DiskFull);
    return std::nullopt;
  };
  files->moving = [](std::string_view, uint32_t, const CopyProgress&) {
    return SysResult::Failure(Win32Error::NotSameDevice);
  };
  runs.action->OverwriteMode = owOverwrite;
  for (const auto& wanted : cases) {
    runs.action->Move = wanted.move;
    EXPECT_FALSE(runs.Perform());
    EXPECT_EQ(runs.Errors(), runs.Wanted({wanted.error}));
  }
  EXPECT_THAT(runs.folder.Names("out"), ElementsAre("a"));
}

TEST_F(FileSetCopyFailing, AttributesThatCannotBeWrittenEndTheRun) {
  runs.disk.Write({"in/a=A", "!out/a=old"});
  files->settingAttributes = [](std::string_view, uint32_t) {
    return SysResult::Failure(Win32Error::WriteProtect);
  };
  runs.action->OverwriteMode = owReadOnly;
  EXPECT_FALSE(runs.Perform());
  EXPECT_EQ(runs.Errors(), runs.Wanted({"Error : Unable to write to destination file %D%\\out\\a. {19}"}));

  runs.action->DestinationFolder = "%D%\\new";
  runs.action->ClearAttributes = true;
  EXPECT_FALSE(runs.Perform());
  EXPECT_EQ(runs.Errors(),
            runs.Wanted({"Error : Could not clear attributes on destination file. Received {19}"}));
}

TEST_F(FileSetCopyFailing, MovesReplaceInOneModeOnly) {
  runs.disk.Write({"in/a=A"});
  runs.action->Move = true;
  for (const auto mode : {owFail, owOverwrite, owReadOnly, owIgnore}) {
    files->moving = [&](std::string_view, uint32_t flags, const CopyProgress&) {
      EXPECT_EQ(flags, mode == owOverwrite ? 11u : 10u);
      return SysResult();
    };
    files->copying = [&](std::string_view, const CopyOptions& options) {
      EXPECT_EQ(options.failIfExists, mode == owFail);
      return SysResult();
    };
    runs.action->OverwriteMode = mode;
    for (const bool move : {true, false}) {
      runs.action->Move = move;
      EXPECT_TRUE(runs.Perform());
    }
  }
}

TEST_F(FileSetCopyFailing, ProgressCountsTheFinishedFiles) {
  runs.disk.Write({"in/a=1234567", "in/b=12", "in/c=1"});
  files->copying = [](std::string_view name, const CopyOptions& options) {
    const uint64_t size = name == "a" ? 7 : name == "b" ? 2 : 1;
    options.progress(0, size);
    options.progress(size, size);
    return SysResult();
  };
  files->moving = [](std::string_view, uint32_t, const CopyProgress&) { return SysResult(); };
  EXPECT_TRUE(runs.Perform());
  const auto line = [&](const std::string& verb, const std::string& name, int percent) {
    return runs.Wanted({"progress  " + verb + " %D%\\in\\" + name + " to %D%\\out\\" + name + "... " +
                        std::to_string(percent)})[0];
  };
  EXPECT_THAT(runs.Progress(),
              ElementsAre(line("Copying", "a", 0), line("Copying", "a", 70), line("Copying", "b", 70),
                          line("Copying", "b", 90), line("Copying", "c", 90), line("Copying", "c", 100)));
  runs.action->Move = true;
  EXPECT_TRUE(runs.Perform());
  EXPECT_THAT(runs.Progress(),
              ElementsAre(line("Moving", "a", 0), line("Moving", "b", 70), line("Moving", "c", 90)));
}

TEST_F(FileSetCopyFailing, TerminationStopsTheCopyAndTheLoop) {
  runs.disk.Write({"in/a=A", "in/b=B"});
  files->copying = [&](std::string_view, const CopyOptions& options) -> FailingFiles::Answer {
    EXPECT_FALSE(*options.cancel);
    runs.action->TerminateAction();
    EXPECT_TRUE(*options.cancel);
    return SysResult();  // this copy was through before it looked
  };
  for (int run = 1; run <= 2; ++run) {
    EXPECT_FALSE(runs.Perform());
    EXPECT_EQ(runs.Lines(),
              runs.Wanted({"Copying 2 files...", "Copying %D%\\in\\a to %D%\\out\\a...", "Terminating..."}));
    EXPECT_THAT(runs.Errors(), IsEmpty());
  }
  EXPECT_TRUE(runs.action->CanTerminate());
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
