#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "fileops/VekDeleteFilesAction.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "support/ActionFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct DeleteFiles : ActionFixture, testing::Test {
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

TEST_F(DeleteFiles, AnswersOfTheSystemThatAreOdd) {
  const std::string here = folder.WindowsPath() + '\\';
  const struct {
    const char* name;
    SysResult answer;
    bool result;
    StringList lines;
  } cases[] = {
      {"a refusal without a code", SysResult::Failure(Win32Error::Success), true, {"0 Files Deleted."}},
      {"a success, and the file is still there",
       SysResult(),
       false,
       {" --> Error Deleting File : " + here + "a.tmp", " --> " + SystemText(Win32Error::Success),
        "0 Files Deleted."}},
  };
  Write({"a.tmp"});
  action->FailIfNoFile = false;
  for (const auto& wanted : cases) {
    fault = [&](const PlatformCall& call) {
      return call.operation == "entries.Delete" ? std::optional(wanted.answer) : std::nullopt;
    };
    EXPECT_EQ(Delete(here + "*.tmp"), wanted.result) << wanted.name;
    StringList lines = wanted.lines;
    lines.insert(lines.begin(), "Deleting files : " + here + "*.tmp");
    EXPECT_EQ(Lines(), lines) << wanted.name;
  }
}

}  // namespace
