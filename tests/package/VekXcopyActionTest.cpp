#include <cmath>
#include <functional>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "platform/Clock.h"
#include "platform/Contents.h"
#include "process/VekXcopyAction.h"
#include "support/ActionFixture.h"
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

  std::string CommandLine(const std::function<void(TVekXCopyAction&)>& change) {
    TVekXCopyAction action(fixture.Context());
    action.Source = fixture.folder.Path("*.txt");
    action.Destination = "C:\\b";
    change(action);
    EXPECT_FALSE(fixture.Run(action));
    if (fixture.Lines().empty()) return "";
    return ReplaceAll(fixture.Lines().back().substr(kCalling.size()), fixture.folder.Path(), "%F%");
  }

  ActionFixture fixture;
  ScriptedServices services;
};

TEST_F(XCopyTest, Switches) {
  using A = TVekXCopyAction;
  const std::pair<std::function<void(A&)>, std::string> cases[] = {
      {[](A&) {}, ""},
      {[](A& a) { a.XCopyMode = TVekXCopyMode::mdRecursive, a.XCopyLogMode = TVekXCopyLogMode::logQuiet; },
       " /Q /S"},
      {[](A& a) { a.XCopyMode = TVekXCopyMode::mdTest, a.XCopyLogMode = TVekXCopyLogMode::logVerbose; },
       " /F /L"},
      {[](A& a) { a.XCopyMode = TVekXCopyMode::mdDirStructure; }, " /T"},
      {[](A& a) { a.TurnOffArchiveBit = true; }, ""},
      {[](A& a) { a.OnlyArchiveFiles = true; }, " /A"},
      {[](A& a) { a.OnlyArchiveFiles = a.TurnOffArchiveBit = true; }, " /M"},
      {[](A& a) {
         a.CopyHiddenAndSys = a.OverwriteReadOnly = a.CopyAttributes = a.OnlyFilesThatAlreadyExist =
             a.CopyUsingShortNames = a.CopyNetworkedFiles = a.CopyNewerFiles = a.CopyFilesChnagedAfter =
                 a.Verify = a.IgnoreErrors = a.CopyOwnershipAndACL = a.CopyFileAuditSettings =
                     a.CopyEncryptedIfNotSupportedInDest = true;
         a.ChangedAfterDate = *ParseIso8601("2007-03-05");
       },
       " /H /R /K /U /Z /V /C /D /D:3-5-2007 /N /X /G /O"},
      {[](A& a) {
         a.ExcludeFiles = {"", "%NONE%"};
       },
       ""},
  };
  for (const auto& [change, wanted] : cases) {
    EXPECT_EQ(CommandLine(change), "%F%/*.txt C:\\b\\ /Y /I" + wanted);
    EXPECT_THAT(fixture.Errors(), ElementsAre(HasSubstr("xcopy.exe")));
  }
  EXPECT_EQ(CommandLine([](A& a) { a.Source = "C:\\a b\\*", a.Destination = "C:\\c d\\"; }),
            R"("C:\a b\*" "C:\c d\\" /Y /I)");
}

TEST_F(XCopyTest, ExcludedNamesGoThroughAFile) {
  const std::string line = CommandLine([](TVekXCopyAction& a) {
    a.ExcludeFiles = {"*.obj", "%NONE%", "tmp"};
  });
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

  CommandLine([](TVekXCopyAction& a) { a.ExcludeFiles = {"plain", "%MISSING%"}; });
  EXPECT_THAT(fixture.Errors(), ElementsAre(testing::StartsWith("Excluded file 1: ")));
  fixture.fault = [](const PlatformCall& call) -> std::optional<SysResult> {
    if (call.operation != "contents.Replace") return {};
    return SysResult::Failure(Win32Error::DiskFull);
  };
  EXPECT_EQ(CommandLine([](TVekXCopyAction& a) { a.ExcludeFiles = {"plain"}; }), "");
  EXPECT_THAT(fixture.Errors(), ElementsAre(HasSubstr(SystemText(Win32Error::DiskFull))));
}

TEST_F(XCopyTest, TheDateIsTodaysUntilItIsSet) {
  const TVekXCopyAction action(fixture.Context());
  const double today = std::trunc(fixture.GetPlatform().clock->LocalNow().days);
  EXPECT_TRUE(action.ChangedAfterDate.days == today || action.ChangedAfterDate.days == today - 1);
}

}  // namespace
