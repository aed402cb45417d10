#include "gmock/gmock.h"

#include "fileops/VekFileAttrib.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "support/ActionFixture.h"
#include "support/DiskTable.h"
#include "support/OsFixture.h"
#include "support/WineLimits.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

using enum TAttributeSetting;

/// Records the words that are written and lets `refused` fail.
struct Attributes : testing::Test {
  Attributes() {
    fixture.fault = [this](const PlatformCall& call) -> std::optional<SysResult> {
      if (call.operation != "entries.SetAttributes") return {};
      written[std::string(NamePart(call.path))] = call.bits & FileAttribute::AnyFile;
      if (NamePart(call.path) == refused) return SysResult::Failure(Win32Error::WriteProtect);
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
  std::string refused;
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

TEST_F(Attributes, SubFoldersComeAfterTheFilesOfTheirParent) {
  disk.Write({"a/b/x.txt=", "a/y.txt=", "z.txt=", "z.bin="});
  action->ReadOnly = asSet;
  action->Recurse = true;
  action->LogAllFiles = true;
  EXPECT_TRUE(SetOn("*.txt"));
  EXPECT_EQ(fixture.Lines(), Lines({"Processed File : %D%\\z.txt", "Processed File : %D%\\a\\y.txt",
                                    "Processed File : %D%\\a\\b\\x.txt"}));
  EXPECT_EQ(disk.Read(), (StringList{"!a/b/x.txt=", "!a/y.txt=", "z.bin=", "!z.txt="}));
}

TEST_F(Attributes, AFileThatRefusesIsToldAndFailsNothing) {
  disk.Write({"a=", "b="});
  refused = "a";
  action->ReadOnly = asSet;
  EXPECT_TRUE(SetOn("?"));
  EXPECT_EQ(fixture.Lines(), Lines({"Error Processed File : {19}"}));
  EXPECT_EQ(disk.Read(), (StringList{"a=", "!b="}));
}

TEST_F(Attributes, ASpecWithoutWildcardsIsOneFile) {
  disk.Write({"sub/x="});
  action->ReadOnly = asSet;
  EXPECT_TRUE(SetOn("sub"));
  EXPECT_TRUE(SetOn("gone"));
  EXPECT_THAT(written, IsEmpty());
  EXPECT_THAT(fixture.Lines(), IsEmpty());
}

TEST_F(Attributes, NothingToDoIsAFailure) {
  EXPECT_FALSE(SetOn("%NO_SUCH_VARIABLE_ANYWHERE%"));
  EXPECT_THAT(fixture.Lines(), ElementsAre("Nothing to do!"));
  action->Archive = asClear;
  EXPECT_FALSE(SetOn("%NO_SUCH_VARIABLE_ANYWHERE%"));
  ASSERT_EQ(fixture.Lines().size(), 1u);
  EXPECT_THAT(fixture.Lines()[0], testing::StartsWith("Error processing File Spec : "));
  action->FileSpec = WideString();
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(), ElementsAre("Nothing to do!"));
}

}  // namespace
