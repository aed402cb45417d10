#include <cmath>

#include "gmock/gmock.h"

#include "platform/Clock.h"
#include "platform/Contents.h"
#include "process/VekXcopyAction.h"
#include "support/RunTable.h"
#include "support/ScriptedServices.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr std::string_view kCalling = "Calling xcopy using command line: ";

/// There is no xcopy in the folder, so that a run ends where it would start the program.
struct XCopyTest : testing::Test {
  XCopyTest() {
    services.options[{"System", "Directory"}] = fixture.folder.Path();
    fixture.Context().SetVariable("NONE", std::string());
  }

  std::string CommandLine(const std::string& set) {
    TVekXCopyAction action(fixture.Context());
    action.Source = fixture.folder.Path("*.txt");
    SetProperties(action, "Destination=C:\\b|" + set);
    EXPECT_FALSE(fixture.Run(action));
    if (fixture.Lines().empty()) return "";
    return ReplaceAll(fixture.Lines().back().substr(kCalling.size()), fixture.folder.Path(), "%F%");
  }

  ActionFixture fixture;
  ScriptedServices services;
};

TEST_F(XCopyTest, Switches) {
  constexpr std::pair<const char*, const char*> kRows[] = {
      {"", ""},
      {"XCopyMode=mdRecursive|XCopyLogMode=logQuiet", " /Q /S"},
      {"XCopyMode=mdTest|XCopyLogMode=logVerbose", " /F /L"},
      {"XCopyMode=mdDirStructure", " /T"},
      {"TurnOffArchiveBit=True", ""},
      {"OnlyArchiveFiles=True", " /A"},
      {"OnlyArchiveFiles=True|TurnOffArchiveBit=True", " /M"},
      {"CopyHiddenAndSys=True|OverwriteReadOnly=True|CopyAttributes=True|OnlyFilesThatAlreadyExist=True|"
       "CopyUsingShortNames=True|CopyNetworkedFiles=True|CopyNewerFiles=True|CopyFilesChnagedAfter=True|"
       "Verify=True|"
       "IgnoreErrors=True|CopyOwnershipAndACL=True|CopyFileAuditSettings=True|"
       "CopyEncryptedIfNotSupportedInDest=True|"
       "ChangedAfterDate=2007-03-05",
       " /H /R /K /U /Z /V /C /D /D:3-5-2007 /N /X /G /O"},
      {"ExcludeFiles+=|ExcludeFiles+=%NONE%", ""},
  };
  for (const auto& [set, wanted] : kRows) {
    EXPECT_EQ(CommandLine(set), std::string("%F%/*.txt C:\\b\\ /Y /I") + wanted);
    EXPECT_THAT(fixture.Errors(), ElementsAre(HasSubstr("xcopy.exe")));
  }
  EXPECT_EQ(CommandLine("Source=C:\\a b\\*|Destination=C:\\c d\\"), R"("C:\a b\*" "C:\c d\\" /Y /I)");
}

TEST_F(XCopyTest, ExcludedNamesGoThroughAFile) {
  const std::string line = CommandLine("ExcludeFiles+=*.obj|ExcludeFiles+=%NONE%|ExcludeFiles+=tmp");
  EXPECT_EQ(fixture.Lines().front(),
            "Warning: Excluded file list contains wildcard characters. XCopy exclude list does not support "
            "wildcards, substring matching only.");
  const std::string mark = "/EXCLUDE:";
  ASSERT_NE(line.find(mark), std::string::npos);
  const std::string file = line.substr(line.find(mark) + mark.size());
  std::string contents;
  EXPECT_TRUE(fixture.GetPlatform().contents->ReadWhole(file, contents)) << file;
  EXPECT_EQ(contents, "*.obj\r\ntmp\r\n");
  EXPECT_TRUE(fixture.GetPlatform().entries->Delete(file));

  CommandLine("ExcludeFiles+=plain|ExcludeFiles+=%MISSING%");
  EXPECT_THAT(fixture.Errors(), ElementsAre(testing::StartsWith("Excluded file 1: ")));
  fixture.fault = [](const PlatformCall& call) -> std::optional<SysResult> {
    if (call.operation != "contents.Replace") return {};
    return SysResult::Failure(Win32Error::DiskFull);
  };
  EXPECT_EQ(CommandLine("ExcludeFiles+=plain"), "");
  EXPECT_THAT(fixture.Errors(), ElementsAre(HasSubstr(SystemText(Win32Error::DiskFull))));
}

TEST_F(XCopyTest, TheDateIsTodaysUntilItIsSet) {
  const TVekXCopyAction action(fixture.Context());
  const double today = std::trunc(fixture.GetPlatform().clock->LocalNow().days);
  EXPECT_TRUE(action.ChangedAfterDate.days == today || action.ChangedAfterDate.days == today - 1);
}

}  // namespace
