#include "gmock/gmock.h"

#include "fileops/VekFileAttrib.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "support/OsFixture.h"
#include "support/RunTable.h"
#include "support/WineLimits.h"

using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

using enum TAttributeSetting;

/// Records the words that are written.
struct Attributes : testing::Test {
  Attributes() {
    fixture.fault = [this](const PlatformCall& call) -> std::optional<SysResult> {
      if (call.operation != "entries.SetAttributes") return {};
      written[std::string(NamePart(call.path))] = call.bits & FileAttribute::AnyFile;
      return {};
    };
  }
  bool SetOn(const std::string& name) {
    action->FileSpec = WideString(fixture.folder.WindowsPath() + '\\' + name);
    written.clear();
    return fixture.Run(*action);
  }
  StringList Lines(const StringList& wanted) const { return disk.Lines(wanted); }

  std::map<std::string, uint32_t> written;
  ActionFixture fixture;
  DiskTable disk{fixture.folder, fixture.GetPlatform()};
  std::unique_ptr<TSetFileAttributesAction> action = fixture.Make<TSetFileAttributesAction>();
};

TEST_F(Attributes, EachSettingSetsClearsOrLeavesItsBit) {
  if (!StoresAttributes(fixture.folder.Path()) || WineLimits::FixedAttributes()) {
    GTEST_SKIP() << "attributes are not stored";
  }
  disk.Write({"!a=", "b=", "sub/c="});
  action->ReadOnly = asClear;
  action->Hidden = asSet;
  action->LogAllFiles = true;
  EXPECT_TRUE(SetOn("*"));
  EXPECT_EQ(fixture.Lines(), Lines({"Processed File : %D%\\a", "Processed File : %D%\\b"}));
  uint32_t attributes = 0;
  EXPECT_TRUE(fixture.GetPlatform().entries->GetAttributes(fixture.folder.Path("a"), attributes));
  EXPECT_EQ(attributes, FileAttribute::Hidden);
  // Written again although nothing changes, and found although they are hidden now.
  EXPECT_TRUE(SetOn("*"));
  EXPECT_THAT(written, UnorderedElementsAre(testing::Key("a"), testing::Key("b")));
}

// clang-format off
const RunCase kRuns[] = {
    {"SubFoldersComeAfterTheFilesOfTheirParent", "FileSpec=%D%\\*.txt|ReadOnly=asSet|Recurse=True|LogAllFiles=True",
     "a/b/x.txt= a/y.txt= z.txt= z.bin=", true,
     "Processed File : %D%\\z.txt|Processed File : %D%\\a\\y.txt|Processed File : %D%\\a\\b\\x.txt",
     "!a/b/x.txt= !a/y.txt= z.bin= !z.txt="},
    {"AFileThatRefusesIsToldAndFailsNothing", "FileSpec=%D%\\?|ReadOnly=asSet", "a= b=", true,
     "Error Processed File : {19}", "a= !b=", "", "", "entries.SetAttributes a 19"},
    {"NothingToDo", "FileSpec=%X%", "", false, "Nothing to do!", ""},
    {"NoSpec", "FileSpec=|Archive=asClear", "", false, "Nothing to do!", ""},
    {"AnUnknownSpec", "FileSpec=%X%|Archive=asClear", "", false, "Error processing File Spec : " + kUnknownX, ""},
};
// clang-format on

TEST(AttributeRuns, Table) { ExpectRuns<TSetFileAttributesAction>(kRuns); }

TEST_F(Attributes, ASpecWithoutWildcardsIsOneFile) {
  disk.Write({"sub/x="});
  action->ReadOnly = asSet;
  EXPECT_TRUE(SetOn("sub"));
  EXPECT_TRUE(SetOn("gone"));
  EXPECT_THAT(written, IsEmpty());
  EXPECT_THAT(fixture.Lines(), IsEmpty());
}

}  // namespace
