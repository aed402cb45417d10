#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fileops/VekDeleteFilesAction.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "support/ActionFixture.h"
#include "support/FailingFiles.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct DeleteFiles : ActionFixture, testing::Test {
  explicit DeleteFiles(const Wrap& wrap = {}) : ActionFixture(wrap) {}

  bool Delete(const std::string& spec) {
    action->SetFileSpec(spec);
    return ActionFixture::Run(*action);
  }
  void Write(std::initializer_list<const char*> names) {
    for (const char* name : names) folder.Write(name, "x");
  }
  void SetAttributes(const char* name, uint32_t attributes) {
    ASSERT_TRUE(GetPlatform().entries->SetAttributes(folder.Path(name), attributes));
  }

  std::unique_ptr<TDeleteFilesAction> action = Make<TDeleteFilesAction>();
};

TEST_F(DeleteFiles, DeletesTheMatchesInOneStatusMessage) {
  Write({"a.tmp", "B.TMP", "c.txt"});
  EXPECT_TRUE(Delete(folder.Path("*.tmp")));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + folder.Path("*.tmp"), "2 Files Deleted."));
  EXPECT_THAT(folder.Names(), ElementsAre("c.txt"));
  EXPECT_EQ(action->FilesAffected(), 2);
  EXPECT_EQ(Events().events.size(), 1u);
}

TEST_F(DeleteFiles, StopsAtAReadOnlyFileInTheOrderOfUpperCasedNames) {
  Write({"a.tmp", "B.tmp", "c.tmp"});
  SetAttributes("B.tmp", FileAttribute::ReadOnly);
  const std::string here = folder.WindowsPath() + '\\';
  EXPECT_FALSE(Delete(here + "*.tmp"));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + here + "*.tmp",
                                   " --> Error Deleting File : " + here + "B.tmp",
                                   " --> " + SystemText(Win32Error::AccessDenied), "1 Files Deleted."));
  EXPECT_THAT(folder.Names(), ElementsAre("B.tmp", "c.tmp"));
}

TEST_F(DeleteFiles, ClearsReadOnlyAndHiddenWhenToldTo) {
  Write({"a.tmp", ".b.tmp", "c.tmp"});
  SetAttributes("a.tmp", FileAttribute::ReadOnly);
  SetAttributes("c.tmp", FileAttribute::ReadOnly | FileAttribute::Hidden);
  action->DeleteReadOnly = true;
  action->DeleteHidden = true;
  EXPECT_TRUE(Delete(folder.Path("*.tmp")));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + folder.Path("*.tmp"), "3 Files Deleted."));
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(DeleteFiles, HiddenFilesGoWithoutBeingCleared) {
  Write({".hidden"});
  EXPECT_TRUE(Delete(folder.Path("*")));
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(DeleteFiles, NeverMatchesSystemFilesAndFolders) {
  Write({"kept.tmp", "sub.tmp/inner.tmp"});
  SetAttributes("kept.tmp", FileAttribute::System | FileAttribute::Hidden);
  EXPECT_FALSE(Delete(folder.Path("*.tmp")));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + folder.Path("*.tmp"), "0 Files Deleted."));
  EXPECT_THAT(folder.Names(), ElementsAre("kept.tmp", "sub.tmp"));
}

TEST_F(DeleteFiles, NoFileIsAFailureOnlyWhenAsked) {
  EXPECT_FALSE(Delete(folder.Path("*.tmp")));
  action->FailIfNoFile = false;
  EXPECT_TRUE(Delete(folder.Path("*.tmp")));
  EXPECT_THAT(Lines(), ElementsAre("Deleting files : " + folder.Path("*.tmp"), "0 Files Deleted."));
  EXPECT_TRUE(Delete(folder.Path("missing\\*.tmp")));
}

TEST_F(DeleteFiles, BlankSpecSaysNothing) {
  for (const bool failIfNoFile : {true, false}) {
    action->FailIfNoFile = failIfNoFile;
    EXPECT_EQ(Delete(" \t"), !failIfNoFile);
    EXPECT_THAT(Events().events, IsEmpty());
  }
}

TEST_F(DeleteFiles, ExpansionFailureIsAStatusMessage) {
  EXPECT_FALSE(Delete("%NO_SUCH_VARIABLE_ANYWHERE%\\*.tmp"));
  ASSERT_EQ(Lines().size(), 2u);
  EXPECT_EQ(Lines()[0], "Unable to Delete file : ");
  EXPECT_THAT(Lines()[1],
              testing::AllOf(testing::StartsWith("--> "), testing::HasSubstr("NO_SUCH_VARIABLE_ANYWHERE")));
  EXPECT_EQ(action->FilesAffected(), 0);
}

TEST_F(DeleteFiles, ExpandsAndTrimsTheSpec) {
  Write({"a.tmp"});
  Context().SetVariable("DIR", folder.Path());
  EXPECT_TRUE(Delete("  %dir%\\a.TMP "));
  EXPECT_EQ(Lines().front(), "Deleting files : " + folder.Path() + "\\a.TMP");
  EXPECT_THAT(folder.Names(), IsEmpty());
}

/// What the system reports for the file "b.tmp", and what comes of it.
struct FailureCase {
  const char* name;
  FailingFiles::Deletion deletion;
  bool result;
  std::optional<Win32Error> reported;
  const char* summary;
  size_t filesLeft;
};

void PrintTo(const FailureCase& testCase, std::ostream* stream) { *stream << testCase.name; }

struct DeleteFilesFailing : testing::TestWithParam<FailureCase> {};

TEST_P(DeleteFilesFailing, Reports) {
  const FailureCase& wanted = GetParam();
  std::unique_ptr<FailingFiles> failing;
  ActionFixture fixture([&](const Platform& real) {
    failing = std::make_unique<FailingFiles>(real);
    failing->deletions["b.tmp"] = wanted.deletion;
    return failing->In(real);
  });
  for (const char* name : {"a.tmp", "b.tmp", "c.tmp"}) fixture.folder.Write(name, "x");
  const auto action = fixture.Make<TDeleteFilesAction>();
  const std::string here = fixture.folder.WindowsPath() + '\\';
  action->SetFileSpec(here + "*.tmp");

  EXPECT_EQ(fixture.Run(*action), wanted.result);
  StringList lines{"Deleting files : " + here + "*.tmp"};
  if (wanted.reported) {
    lines.push_back(" --> Error Deleting File : " + here + "b.tmp");
    lines.push_back(" --> " + SystemText(*wanted.reported));
  }
  lines.emplace_back(wanted.summary);
  EXPECT_EQ(fixture.Lines(), lines);
  EXPECT_EQ(fixture.folder.Names().size(), wanted.filesLeft);
}

constexpr SysResult kDone;
INSTANTIATE_TEST_SUITE_P(
    Table, DeleteFilesFailing,
    testing::Values(FailureCase{"DiskFails",
                                {SysResult::Failure(Win32Error::WriteProtect)},
                                false,
                                Win32Error::WriteProtect,
                                "1 Files Deleted.",
                                2},
                    FailureCase{"NoErrorCode",
                                {SysResult::Failure(Win32Error::Success)},
                                true,
                                std::nullopt,
                                "2 Files Deleted.",
                                1},
                    FailureCase{"FileSurvives", {kDone}, false, Win32Error::Success, "1 Files Deleted.", 2}),
    [](const auto& info) { return info.param.name; });

}  // namespace
