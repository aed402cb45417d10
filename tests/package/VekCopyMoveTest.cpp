#include <algorithm>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fileops/VekCopyMove.h"
#include "fileops/VekPercentage.h"
#include "pages/FCopyMoveEditFrame.h"
#include "platform/Environment.h"
#include "support/ActionFixture.h"
#include "support/DiskTable.h"
#include "support/FailingFiles.h"
#include "support/NullHost.h"
#include "support/OsFixture.h"
#include "support/ScriptedServices.h"
#include "support/WineLimits.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string kCopyFailed = "Failed to copy File : ";
const std::string kMoveFailed = " --> Error Moving File : ";

template <class Action>
void Set(Action& action, std::string_view property, const PropertyValue& value) {
  const auto rows = action.PropertyRows();
  const auto row = std::ranges::find(rows, property, &PropertyRow::name);
  ASSERT_NE(row, rows.end()) << property;
  (*row)->set(action, value);
}

/// A run: what is set, what stands on the disk, what is logged and what then stands there.
struct RunCase {
  const char* name;
  const char* options;  // the properties that are true
  const char* before;   // see DiskTable
  const char *spec, *target;
  bool result;
  const char* log;  // after the header; "FAILED" stands for how the lines of a failed file begin
  const char* after;
  int32_t affected;
  int32_t errors = 0;
};

void PrintTo(const RunCase& testCase, std::ostream* stream) { *stream << testCase.name; }

template <class Action>
struct Runs : ActionFixture {
  explicit Runs(const Wrap& wrap = {}) : ActionFixture(wrap) {
    Context().SetVariable("D", folder.WindowsPath());
  }

  bool Perform(const std::string& spec, const std::string& target) {
    action->SetFileSpec(spec);
    action->Target = WideString(target);
    return ActionFixture::Run(*action);
  }
  StringList Wanted(const StringList& lines) const { return disk.Lines(lines); }

  void Expect(const RunCase& wanted, const std::string& verb, std::string_view failed) {
    disk.Write(SplitAt(wanted.before, " "));
    action->SetFileSpec(wanted.spec);
    for (const std::string& option : SplitAt(wanted.options, " ")) Set(*action, option, true);
    action->Target = WideString(wanted.target);
    EXPECT_EQ(ActionFixture::Run(*action), wanted.result);
    const std::string header = verb + " files : " + wanted.spec + " -> " + wanted.target;
    EXPECT_EQ(Lines(), Wanted(SplitAt(ReplaceAll(header + '|' + wanted.log, "FAILED", failed), "|")));
    EXPECT_EQ(disk.Read(), SplitAt(wanted.after, " "));
    EXPECT_EQ(action->FilesAffected, wanted.affected);
    EXPECT_EQ(action->ErrorCount, wanted.errors);
    EXPECT_THAT(Errors(), IsEmpty());
  }

  std::unique_ptr<Action> action = Make<Action>();
  const DiskTable disk{folder, GetPlatform()};
};

struct CopyFiles : Runs<TCopyFilesAction>, testing::Test {};
struct MoveFiles : Runs<TMoveFilesAction>, testing::Test {};

/// The same with files that fail on purpose.
template <class Action>
struct Failing {
  std::unique_ptr<FailingFiles> files;
  Runs<Action> runs{[this](const Platform& real) {
    files = std::make_unique<FailingFiles>(real);
    return files->In(real);
  }};
};

struct CopyFilesFailing : Failing<TCopyFilesAction>, testing::Test {};
struct MoveFilesFailing : Failing<TMoveFilesAction>, testing::Test {};

// clang-format off
const RunCase kCopies[] = {
    {"IntoAFolder", "", "in/a.txt=A in/b.TXT=B in/c.doc=C in/sub/d.txt=D out/",
     "%D%\\in\\*.txt", "%D%\\out\\", true,
     "2 Files Copied.",
     "in/a.txt=A in/b.TXT=B in/c.doc=C in/sub/d.txt=D out/a.txt=A out/b.TXT=B", 2},
    {"UnderANewName", "", "a.txt=A",
     "%D%\\A.TXT", "%D%\\b.txt", true,
     "1 Files Copied.",
     "a.txt=A b.txt=A", 1},
    {"ReplacesAFile", "", "a.txt=A b.txt=old",
     "%D%\\a.txt", "%D%\\b.txt", true,
     "1 Files Copied.",
     "a.txt=A b.txt=A", 1},
    {"MissingFolderStopsAtTheFirst", "", "in/a.txt=A in/b.txt=B",
     "%D%\\in\\*.txt", "%D%\\out", false,
     "FAILED %D%\\in\\a.txt -> %D%\\out\\a.txt|Win32 Error : {3}|0 Files Copied.",
     "in/a.txt=A in/b.txt=B", 0},
    {"ForceMakesTheFolder", "Force", "in/a.txt=A in/b.txt=B",
     "%D%\\in\\*.txt", "%D%\\x\\out", true,
     "2 Files Copied.",
     "in/a.txt=A in/b.txt=B x/out/a.txt=A x/out/b.txt=B", 2},
    {"ForceMakesTheParentOfAFile", "Force", "a.txt=A",
     "%D%\\a.txt", "%D%\\x\\out", true,
     "1 Files Copied.",
     "a.txt=A x/out=A", 1},
    {"TheFolderIsAFile", "Force", "in/a.txt=A out=file",
     "%D%\\in\\*.txt", "%D%\\out", false,
     "FAILED %D%\\in\\a.txt -> %D%\\out\\a.txt|Win32 Error : {3}|0 Files Copied.",
     "in/a.txt=A out=file", 0},
    {"TheSecondOfThreeExists", "FailIfExists", "in/a.txt=A in/b.txt=B in/c.txt=C out/b.txt=old",
     "%D%\\in\\*.txt", "%D%\\out", false,
     "FAILED %D%\\in\\b.txt -> %D%\\out\\b.txt|File Already Exists!|1 Files Copied.",
     "in/a.txt=A in/b.txt=B in/c.txt=C out/a.txt=A out/b.txt=old", 1},
    {"ReadOnlyTarget", "", "a.txt=A !b.txt=old",
     "%D%\\a.txt", "%D%\\b.txt", false,
     "FAILED %D%\\a.txt -> %D%\\b.txt|File Already Exists and is marked as Read Only|0 Files Copied.",
     "a.txt=A !b.txt=old", 0},
    {"ExistsGoesBeforeReadOnly", "FailIfExists OverwriteReadOnly", "a.txt=A !b.txt=old",
     "%D%\\a.txt", "%D%\\b.txt", false,
     "FAILED %D%\\a.txt -> %D%\\b.txt|File Already Exists!|0 Files Copied.",
     "a.txt=A !b.txt=old", 0},
    {"OverwritesReadOnly", "OverwriteReadOnly", "!a.txt=A !b.txt=old",
     "%D%\\a.txt", "%D%\\b.txt", true,
     "1 Files Copied.",
     "!a.txt=A !b.txt=A", 1},
    {"ClearsTheAttributes", "OverwriteReadOnly ClearAttributes", "!a.txt=A !b.txt=old",
     "%D%\\a.txt", "%D%\\b.txt", true,
     "1 Files Copied.",
     "!a.txt=A b.txt=A", 1},
    {"OntoItself", "", "a.txt=A",
     "%D%\\*.txt", "%D%", false,
     "FAILED %D%\\a.txt -> %D%\\a.txt|Win32 Error : {32}|0 Files Copied.",
     "a.txt=A", 0},
    {"NoMatch", "", "out/",
     "%D%\\*.txt", "%D%\\out", true,
     "0 Files Copied.",
     "out/", 0},
    {"NoMatchWithFailIfZero", "FailIfZeroFiles", "a.txt/",
     "%D%\\a.txt", "%D%\\b.txt", false,
     "0 Files Copied.",
     "a.txt/", 0},
    {"RecursesAndMakesOnlyFoldersWithFiles", "Recurse Force", "in/a.txt=A in/one/b.txt=B in/two/c.doc=C in/two/deep/d.txt=D in/three/",
     "%D%\\in\\*.txt", "%D%\\out", true,
     "3 Files Copied.",
     "in/a.txt=A in/one/b.txt=B in/three/ in/two/c.doc=C in/two/deep/d.txt=D out/a.txt=A out/one/b.txt=B out/two/deep/d.txt=D", 3},
    {"AFailureInASubFolderEndsThatFolderOnly", "Recurse Force FailIfExists", "in/one/a=A in/one/b=B in/one/below/c=C in/two/d=D out/one/a=old",
     "%D%\\in\\*", "%D%\\out", true,
     "FAILED %D%\\in\\one\\a -> %D%\\out\\one\\a|File Already Exists!|1 Files Copied.",
     "in/one/a=A in/one/b=B in/one/below/c=C in/two/d=D out/one/a=old out/two/d=D", 1},
    {"AFailureAboveKeepsSubFoldersOut", "Recurse FailIfExists", "in/a=A in/one/b=B out/a=old out/one/",
     "%D%\\in\\*", "%D%\\out", false,
     "FAILED %D%\\in\\a -> %D%\\out\\a|File Already Exists!|0 Files Copied.",
     "in/a=A in/one/b=B out/a=old out/one/", 0},
    {"RecursesForANameToo", "Recurse Force", "in/a.txt=A in/one/a.txt=B in/one/b.txt=C",
     "%D%\\in\\a.txt", "%D%\\out", true,
     "2 Files Copied.",
     "in/a.txt=A in/one/a.txt=B in/one/b.txt=C out/a.txt=A out/one/a.txt=B", 2},
};
// clang-format on

struct Copies : testing::TestWithParam<RunCase> {};

TEST_P(Copies, Run) { Runs<TCopyFilesAction>().Expect(GetParam(), "Copying", "Failed to copy File :"); }
INSTANTIATE_TEST_SUITE_P(Table, Copies, testing::ValuesIn(kCopies),
                         [](const auto& info) { return info.param.name; });

TEST_F(CopyFiles, ATargetWithinTheSourceIsNotCopiedIntoItself) {
  disk.Write({"a=A", "one/b=B"});
  action->SetRecurse(true);
  action->Force = true;
  const StringList after{"a=A", "one/b=B", "x/out/a=A", "x/out/one/b=B"};
  for (int run = 1; run <= 2; ++run) {
    EXPECT_TRUE(Perform("%D%\\*", "%D%\\x\\out"));
    EXPECT_EQ(Lines(), Wanted({"Copying files : %D%\\* -> %D%\\x\\out",
                               "Skipped, because it is the target : %D%\\x\\out", "2 Files Copied."}));
    EXPECT_EQ(disk.Read(), after);
  }
}

TEST_F(CopyFiles, LinksThatLeadBackEnd) {
  if (WineLimits::NoLinks()) GTEST_SKIP();
  disk.Write({"in/sub/a=A"});
  MakeLink(folder.Path("in"), folder.Path("in/sub/loop"));
  action->SetRecurse(true);
  action->Force = true;
  EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(Lines().back(), "1 Files Copied.");
  EXPECT_EQ(folder.Read("out/sub/a"), "A");
  EXPECT_FALSE(folder.Exists("out/sub/loop"));
}

TEST_F(CopyFiles, TakesHiddenAndSystemFilesButNoFoldersOfThatKind) {
  disk.Write({"in/h=H", "in/s=S", "in/.git/c=C"});
  Entries& entries = *GetPlatform().entries;
  ASSERT_TRUE(entries.SetAttributes(folder.Path("in/h"), FileAttribute::Hidden));
  ASSERT_TRUE(entries.SetAttributes(folder.Path("in/s"), FileAttribute::System));
  entries.SetAttributes(folder.Path("in/.git"), FileAttribute::Hidden);
  action->SetRecurse(true);
  action->Force = true;
  EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_THAT(folder.Names("out"), ElementsAre("h", "s"));
}

TEST_F(CopyFiles, ABareNameIsFoundHereAndTakenFromTheRoot) {
  disk.Write({"vektest-bare.txt=A", "out/"});
  Environment& environment = *GetPlatform().environment;
  const std::string before = environment.CurrentFolder();
  ASSERT_TRUE(environment.SetCurrentFolder(folder.Path()));
  EXPECT_FALSE(Perform("vektest-b*.txt", "%D%\\out"));
  ASSERT_TRUE(environment.SetCurrentFolder(before));
  EXPECT_EQ(Lines(), Wanted({"Copying files : vektest-b*.txt -> %D%\\out",
                             kCopyFailed + environment.PathDelimiter("") +
                                 "vektest-bare.txt -> %D%\\out\\vektest-bare.txt",
                             "Win32 Error : {2}", "0 Files Copied."}));
}

TEST_F(CopyFiles, AFileThatAnotherProgramHoldsFails) {
  disk.Write({"a.txt=A", "b.txt=old"});
  {
    const ExclusiveOpen held(folder.Path("b.txt"));
    EXPECT_FALSE(Perform("%D%\\a.txt", "%D%\\b.txt"));
  }
  EXPECT_THAT(Lines(), Contains(Wanted({"Win32 Error : {32}"})[0]));
  EXPECT_EQ(folder.Read("b.txt"), "old");
}

TEST_F(CopyFiles, ANameTooLongForTheDiskFails) {
  disk.Write({"a.txt=A"});
  EXPECT_FALSE(Perform("%D%\\a.txt", "%D%\\" + std::string(300, 'x')));
  ASSERT_EQ(Lines().size(), 4u);
  EXPECT_THAT(Lines()[2], testing::StartsWith("Win32 Error : "));
  EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
}

TEST_F(CopyFiles, MissingTextsAreMessages) {
  const struct {
    const char *spec, *target;
    StringList lines;
  } cases[] = {
      {"", "out", {"Error: No source file specified."}},
      {" \t", "%NO_SUCH_VARIABLE%", {"Error: No source file specified."}},
      {"%D%\\a", " ", {"Error: No target file specified."}},
  };
  for (const auto& wanted : cases) {
    EXPECT_FALSE(Perform(wanted.spec, wanted.target));
    EXPECT_EQ(Lines(), wanted.lines);
    EXPECT_EQ(Events().events.size(), 1u);
  }
}

TEST_F(CopyFiles, ExpansionFailuresAreAStatusMessage) {
  const struct {
    const char *spec, *target, *first;
  } cases[] = {
      {"%NO_SUCH_VARIABLE%", "out", "Unable to Copy files : "},
      {" %D%\\a ", "%NO_SUCH_VARIABLE%", "Unable to Copy files : %D%\\a"},
  };
  for (const auto& wanted : cases) {
    EXPECT_FALSE(Perform(wanted.spec, wanted.target));
    ASSERT_EQ(Lines().size(), 2u);
    EXPECT_EQ(Lines()[0], Wanted({wanted.first})[0]);
    EXPECT_THAT(Lines()[1], testing::AllOf(testing::HasSubstr("NO_SUCH_VARIABLE"),
                                           testing::Not(testing::HasSubstr("-->"))));
  }
}

TEST_F(CopyFilesFailing, AFileThatVanishedStopsTheRun) {
  runs.disk.Write({"in/a=A", "in/b=B", "in/c=C", "out/"});
  files->copying = [&](std::string_view name, const CopyOptions&) {
    if (name == "b") runs.GetPlatform().entries->Delete(runs.folder.Path("in/b"));
    return std::nullopt;
  };
  EXPECT_FALSE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(runs.Lines(),
            runs.Wanted({"Copying files : %D%\\in\\* -> %D%\\out", kCopyFailed + "%D%\\in\\b -> %D%\\out\\b",
                         "Win32 Error : {2}", "1 Files Copied."}));
  EXPECT_THAT(runs.folder.Names("out"), ElementsAre("a"));
}

TEST_F(CopyFilesFailing, TheMessageIsSentWhenSomethingRaises) {
  runs.disk.Write({"in/a=A", "in/b=B", "out/"});
  files->copying = [](std::string_view name, const CopyOptions&) -> FailingFiles::Answer {
    if (name == "b") throw std::runtime_error("raised");
    return std::nullopt;
  };
  EXPECT_FALSE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(runs.Lines(), runs.Wanted({"Copying files : %D%\\in\\* -> %D%\\out", "1 Files Copied."}));
  EXPECT_THAT(runs.Errors(), ElementsAre(testing::HasSubstr("raised")));
}

TEST_F(CopyFilesFailing, TerminationAbortsTheCopyAndEndsTheWalk) {
  runs.disk.Write({"in/one/a=A", "in/one/below/b=B", "in/two/c=C"});
  runs.action->SetRecurse(true);
  runs.action->Force = true;
  files->copying = [&](std::string_view, const CopyOptions& options) -> FailingFiles::Answer {
    EXPECT_FALSE(*options.cancel);
    runs.action->TerminateAction();
    EXPECT_TRUE(*options.cancel);
    return SysResult::Failure(Win32Error::RequestAborted);
  };
  for (int run = 1; run <= 2; ++run) {  // each begins with the wish forgotten
    EXPECT_TRUE(runs.Perform("%D%\\in\\*", "%D%\\out"));
    EXPECT_EQ(runs.Lines(), runs.Wanted({"Copying files : %D%\\in\\* -> %D%\\out",
                                         kCopyFailed + "%D%\\in\\one\\a -> %D%\\out\\one\\a",
                                         "Win32 Error : {1235}", "0 Files Copied."}));
  }
  EXPECT_TRUE(runs.action->CanTerminate());
}

TEST_F(CopyFilesFailing, ProgressIsSentWhenItsPercentageChanges) {
  runs.disk.Write({"in/a=A", "in/b=B", "out/"});
  files->copying = [](std::string_view, const CopyOptions& options) {
    for (const uint64_t done : {0, 1, 499, 504, 1000}) options.progress(done, 1000);
    return std::nullopt;
  };
  EXPECT_TRUE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  StringList wanted;
  for (const char* name : {"a", "b"}) {
    for (const char* percent : {"0", "49", "50", "100"}) {
      wanted.push_back("progress  Copying File : %D%\\in\\" + std::string(name) + " to : %D%\\out\\" + name +
                       ' ' + percent);
    }
  }
  StringList progress = runs.Events().events;
  std::erase_if(progress, [](const std::string& event) { return !event.starts_with("progress"); });
  // The real copy, where it tells anything, says no more than 100 again.
  EXPECT_EQ(progress, runs.Wanted(wanted));
}

TEST_F(CopyFilesFailing, FailIfExistsIsTheCopysFlagToo) {
  runs.disk.Write({"a=A"});
  for (const bool failIfExists : {true, false}) {
    runs.action->FailIfExists = failIfExists;
    files->copying = [&](std::string_view, const CopyOptions& options) {
      EXPECT_EQ(options.failIfExists, failIfExists);
      return SysResult();
    };
    EXPECT_TRUE(runs.Perform("%D%\\a", "%D%\\b"));
  }
}

// clang-format off
const RunCase kMoves[] = {
    {"IntoAFolder", "", "in/a.txt=A in/b.txt=B in/c.doc=C in/sub.txt/d=D out/",
     "%D%\\in\\*.txt", "%D%\\out", true,
     "2 Files Moved.",
     "in/c.doc=C in/sub.txt/d=D out/a.txt=A out/b.txt=B", 2},
    {"DoesNotRecurse", "Recurse Force", "in/one/a=A in/b=B",
     "%D%\\in\\*", "%D%\\out", true,
     "1 Files Moved.",
     "in/one/a=A out/b=B", 1},
    {"ForceMakesTheParentOfAFile", "Force", "a=A",
     "%D%\\a", "%D%\\x\\y\\b", true,
     "1 Files Moved.",
     "x/y/b=A", 1},
    {"ReplacesAFile", "", "a=A b=old",
     "%D%\\a", "%D%\\b", true,
     "1 Files Moved.",
     "b=A", 1},
    {"GoesOnAfterAFailedMove", "", "in/a=A in/b=B out/a/x=folder",
     "%D%\\in\\*", "%D%\\out", true,
     "FAILED %D%\\in\\a -> %D%\\out\\a| --> {183}|1 Files Moved.",
     "in/a=A out/a/x=folder out/b=B", 1, 1},
    {"StopsAfterAFailedMove", "StopOnAnyErrors", "in/a=A in/b=B out/a/x=folder",
     "%D%\\in\\*", "%D%\\out", false,
     "FAILED %D%\\in\\a -> %D%\\out\\a| --> {183}|0 Files Moved.",
     "in/a=A in/b=B out/a/x=folder", 0, 1},
    {"ExistingTargetStopsEvenSo", "FailIfExists", "in/a=A in/b=B in/c=C out/b=old",
     "%D%\\in\\*", "%D%\\out", false,
     "FAILED %D%\\in\\b -> %D%\\out\\b| --> The target File exists and \"Fail if Exists\" is checked|1 Files Moved.",
     "in/b=B in/c=C out/a=A out/b=old", 1},
    {"ReadOnlyTargetStopsEvenSo", "", "in/a=A in/b=B in/c=C !out/b=old",
     "%D%\\in\\*", "%D%\\out", false,
     "FAILED %D%\\in\\b -> %D%\\out\\b| --> The target File is marked \"Read Only\"|1 Files Moved.",
     "in/b=B in/c=C out/a=A !out/b=old", 1},
    {"OverwritesReadOnlyAndKeepsTheSourcesAttributes", "OverwriteReadOnly", "!in/a=A !out/a=old",
     "%D%\\in\\*", "%D%\\out", true,
     "1 Files Moved.",
     "in/ !out/a=A", 1},
    {"ClearsTheAttributes", "ClearAttributes", "!in/a=A out/",
     "%D%\\in\\*", "%D%\\out", true,
     "1 Files Moved.",
     "in/ out/a=A", 1},
    {"OntoItself", "", "a=A",
     "%D%\\a", "%D%\\a", true,
     "1 Files Moved.",
     "a=A", 1},
    {"OntoItselfInOtherWords", "", "x/a=A",
     "%D%/x/*", "%D%\\x", true,
     "1 Files Moved.",
     "x/a=A", 1},
    {"NothingFoundIsNoFailure", "FailIfZeroFiles StopOnAnyErrors", "in/",
     "%D%\\in\\*", "%D%\\out", true,
     "0 Files Moved.",
     "in/", 0},
    {"NothingMovedIsAFailureWhenAsked", "FailIfZeroFiles", "a=A",
     "%D%\\a", "%D%\\missing\\a", false,
     "FAILED %D%\\a -> %D%\\missing\\a| --> {3}|0 Files Moved.",
     "a=A", 0, 1},
};
// clang-format on

struct Moves : testing::TestWithParam<RunCase> {};

TEST_P(Moves, Run) { Runs<TMoveFilesAction>().Expect(GetParam(), "Moving", " --> Error Moving File :"); }
INSTANTIATE_TEST_SUITE_P(Table, Moves, testing::ValuesIn(kMoves),
                         [](const auto& info) { return info.param.name; });

TEST_F(MoveFiles, AFileIsGivenOtherLetters) {
  if (WineLimits::NoRenameWithinOneFile()) GTEST_SKIP() << "Wine leaves the case of letters";
  disk.Write({"a.txt=A"});
  EXPECT_TRUE(Perform("%D%\\a.txt", "%D%\\A.TXT"));
  EXPECT_THAT(disk.Read(), ElementsAre("A.TXT=A"));
}

TEST_F(MoveFiles, WithoutAFolderEveryMatchTakesTheSameName) {
  disk.Write({"a.txt=A", "b.txt=B"});
  action->SetFileSpec("%D%\\*.txt");
  action->SetTargetIsDir(false);
  EXPECT_TRUE(Perform("%D%\\*.txt", "%D%\\one"));
  EXPECT_EQ(Lines(), Wanted({"Moving files : %D%\\*.txt -> %D%\\one", "2 Files Moved."}));
  EXPECT_THAT(disk.Read(), ElementsAre("one=B"));
}

TEST_F(MoveFiles, SystemFilesStay) {
  disk.Write({"in/h=H", "in/s=S", "out/"});
  ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path("in/h"), FileAttribute::Hidden));
  ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path("in/s"), FileAttribute::System));
  EXPECT_TRUE(Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(disk.Read(), (StringList{"in/s=S", "out/h=H"}));
}

TEST_F(MoveFiles, MissingTextsSucceedInSilence) {
  for (const auto& [spec, target] : {std::pair(" ", "out"), std::pair("%D%\\a", "\t")}) {
    EXPECT_TRUE(Perform(spec, target));
    EXPECT_THAT(Events().events, IsEmpty());
  }
}

TEST_F(MoveFiles, ExpansionFailuresAreAStatusMessage) {
  EXPECT_FALSE(Perform("%D%\\a", "%NO_SUCH_VARIABLE%"));
  ASSERT_EQ(Lines().size(), 2u);
  EXPECT_EQ(Lines()[0], Wanted({" --> Unable to Move files : %D%\\a"})[0]);
  EXPECT_THAT(Lines()[1],
              testing::AllOf(testing::StartsWith(" --> "), testing::HasSubstr("NO_SUCH_VARIABLE")));
}

TEST_F(MoveFilesFailing, OneReadOnlyTargetStandsForAllThatFollow) {
  runs.disk.Write({"in/a=A", "in/b=B", "in/c=C", "out/a=old", "!out/b=old", "out/c=old"});
  runs.action->OverwriteReadOnly = true;
  StringList reset;
  files->settingAttributes = [&](std::string_view name, uint32_t attributes) {
    reset.push_back(std::string(name) + ' ' + std::to_string(attributes));
    return std::nullopt;
  };
  for (int run = 1; run <= 2; ++run) {  // the next run knows nothing of it
    EXPECT_TRUE(runs.Perform("%D%\\in\\*", "%D%\\out"));
    EXPECT_THAT(reset, ElementsAre("b 128", "c 128"));
    runs.disk.Write({"in/a=A", "in/c=C"});
  }
  EXPECT_EQ(runs.action->FilesAffected, 2);
}

TEST_F(MoveFilesFailing, AMoveThatFailsCostsNoFile) {
  runs.disk.Write({"in/a=A", "out/a=old", "out/.replaced1=kept"});
  files->moving = [](std::string_view, uint32_t flags, const CopyProgress&) {
    return flags == 0 ? std::nullopt : std::optional(SysResult::Failure(Win32Error::NotSameDevice));
  };
  EXPECT_TRUE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(runs.action->ErrorCount, 1);
  EXPECT_EQ(runs.disk.Read(), (StringList{"in/a=A", "out/.replaced1=kept", "out/a=old"}));

  files->moving = {};
  EXPECT_TRUE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(runs.disk.Read(), (StringList{"in/", "out/.replaced1=kept", "out/a=A"}));
}

TEST_F(MoveFilesFailing, ATargetThatCannotMakeWayStopsOnlyWhenAsked) {
  runs.disk.Write({"in/a=A", "in/b=B", "out/a=old"});
  files->moving = [](std::string_view name, uint32_t flags, const CopyProgress&) {
    return flags == 0 && name == "a" ? std::optional(SysResult::Failure(Win32Error::WriteProtect))
                                     : std::nullopt;
  };
  runs.action->StopOnAnyErrors = true;
  const std::string failed = kMoveFailed + "%D%\\in\\a -> %D%\\out\\a";
  EXPECT_FALSE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(runs.Lines(),
            runs.Wanted({"Moving files : %D%\\in\\* -> %D%\\out", failed, " --> {19}", "0 Files Moved."}));
  EXPECT_EQ(runs.action->ErrorCount, 0);

  runs.action->StopOnAnyErrors = false;
  EXPECT_TRUE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(runs.Lines(),
            runs.Wanted({"Moving files : %D%\\in\\* -> %D%\\out", failed, " --> {183}", "1 Files Moved."}));
  EXPECT_EQ(runs.action->ErrorCount, 1);
}

TEST_F(MoveFilesFailing, ASourceThatVanishedIsNamedOrJustFails) {
  runs.disk.Write({"in/a=A", "in/b=B", "out/"});
  runs.action->StopOnAnyErrors = true;
  files->missing = "a";
  const std::string failed = kMoveFailed + "%D%\\in\\a -> %D%\\out\\a";
  EXPECT_FALSE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(runs.Lines(), runs.Wanted({"Moving files : %D%\\in\\* -> %D%\\out", failed,
                                       " --> Source File Does not exist", "0 Files Moved."}));

  runs.action->StopOnAnyErrors = false;
  files->moving = [&](std::string_view name, uint32_t, const CopyProgress&) {
    if (name == "a") runs.GetPlatform().entries->Delete(runs.folder.Path("in/a"));
    return std::nullopt;
  };
  EXPECT_TRUE(runs.Perform("%D%\\in\\*", "%D%\\out"));
  EXPECT_EQ(runs.Lines(),
            runs.Wanted({"Moving files : %D%\\in\\* -> %D%\\out", failed, " --> {2}", "1 Files Moved."}));
}

TEST_F(MoveFilesFailing, OnlyAMoveIntoAFolderHasProgressAndCrossesVolumes) {
  runs.disk.Write({"a=A", "out/"});
  for (const bool isDir : {true, false}) {
    runs.action->SetTargetIsDir(isDir);
    files->moving = [&](std::string_view, uint32_t flags, const CopyProgress& progress) {
      EXPECT_EQ(flags, isDir ? 10u : 0u);
      EXPECT_EQ(static_cast<bool>(progress), isDir);
      if (isDir) progress(1, 3);
      return SysResult();
    };
    EXPECT_TRUE(runs.Perform("%D%\\a", "%D%\\out"));
    const std::string text = runs.Wanted({"progress  Moving File : %D%\\a to : %D%\\out\\a "})[0];
    const StringList progress{text + '0', text + "33", "status "};
    EXPECT_EQ(runs.Events().events, isDir ? progress : StringList{"status "});
  }
}

TEST(CopyPercentage, HoldsForAnySize) {
  constexpr uint64_t kHuge = uint64_t{1} << 63;
  const struct {
    uint64_t done, total;
    int32_t percent;
  } cases[] = {{0, 0, 0},   {5, 0, 0},   {0, 7, 0},           {29, 100, 29},          {999, 1000, 99},
               {7, 7, 100}, {8, 4, 200}, {kHuge, kHuge, 100}, {kHuge / 2, kHuge, 50}, {kHuge, 1, 2147483647}};
  for (const auto& wanted : cases) {
    EXPECT_EQ(Percentage(wanted.done, wanted.total), wanted.percent) << wanted.done << '/' << wanted.total;
  }
}

TEST(CopyMoveSettings, KeepEachOtherConsistent) {
  const struct {
    StringList set;  // "Property=value" in order
    bool isDir, recurse;
  } cases[] = {
      {{"FileSpec=a*"}, true, false},
      {{"FileSpec=?"}, true, false},
      {{"FileSpec=a"}, false, false},
      {{"FileSpec=a*", "TargetIsDir=False", "FileSpec=a*"}, false, false},  // unchanged: no effect
      {{"FileSpec=a*", "TargetIsDir=False", "FileSpec=b*"}, true, false},
      {{"Recurse=True"}, true, true},
      {{"Recurse=True", "TargetIsDir=False"}, false, false},
      {{"Recurse=True", "Recurse=False"}, true, false},
  };
  for (const auto& wanted : cases) {
    NullHost host;
    TMoveFilesAction action(host);
    for (const std::string& text : wanted.set) {
      const size_t mark = text.find('=');
      const std::string value = text.substr(mark + 1);
      const bool isText = text.starts_with("FileSpec");
      Set(action, text.substr(0, mark), isText ? PropertyValue(value) : PropertyValue(value == "True"));
    }
    EXPECT_EQ(action.TargetIsDir(), wanted.isDir) << testing::PrintToString(wanted.set);
    EXPECT_EQ(action.Recurse(), wanted.recurse) << testing::PrintToString(wanted.set);
  }
}

template <class Control>
Control& Find(const TFrame& page, std::string_view name) {
  return dynamic_cast<Control&>(*page.FindControl(name));
}

TEST(CopyMovePages, WriteWhatTheyShow) {
  NullHost host;
  TCopyFilesAction action(host);
  TCopyFrame page;
  page.ReadActionData(action);
  Find<TButtonEdit>(page, "txtSource").Enter("*.txt");
  EXPECT_TRUE(Find<TCheckBox>(page, "chkTargetIsDir").Checked());
  Find<TCheckBox>(page, "chkRecurse").Click();
  Find<TCheckBox>(page, "chkTargetIsDir").Click();
  EXPECT_FALSE(Find<TCheckBox>(page, "chkRecurse").Checked());
  page.WriteActionData(action);
  EXPECT_EQ(action.FileSpec(), "*.txt");
  EXPECT_FALSE(action.TargetIsDir());
  EXPECT_FALSE(action.Recurse());
}

TEST(CopyMovePages, BrowseForWhatTheTargetIs) {
  ScriptedServices services;
  services.answer = "C:\\chosen";
  TMoveFrame page;
  auto& target = Find<TButtonEdit>(page, "txtTarget");
  target.ClickButton();
  EXPECT_THAT(services.asked, ElementsAre("Select File", "", "All Files (*.*)|*.*", ""));
  Find<TCheckBox>(page, "chkTargetIsDir").Click();
  target.ClickButton();
  EXPECT_THAT(services.asked, ElementsAre("Select Directory", "C:\\chosen"));
}

}  // namespace
