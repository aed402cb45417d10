#include "gmock/gmock.h"

#include "process/VekRobocopyMainAction.h"
#include "process/VekRobocopyOptions.h"
#include "support/RunTable.h"
#include "support/ScriptedServices.h"
#include "support/TestChild.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::string_view kCalling = "Calling Robocopy with command line: ";

/// The child stands in for robocopy: with the source "exit" it ends with the code that the destination names.
struct RobocopyTest : ActionFixture, testing::Test {
  using ActionFixture::Run;

  RobocopyTest() {
    auto options = std::make_unique<TVekRobocopyOptions>(GetPlatform());
    options->SetRobocopyPath(TestChild());
    services.optionsObject = std::move(options);
    Context().SetVariable("D", std::string("C:\\My Files\\"));
    Context().SetVariable("NONE", std::string());
  }

  /// The command line of an action with so many properties set; empty where none is built.
  template <class Action>
  std::string CommandLine(const std::string& set) {
    Action action(Context());
    SetProperties(action, "SourceDir=exit|DestDir=0|" + set);
    Run(action);
    if (Lines().empty() || !Lines().front().starts_with(kCalling)) return "";
    return Lines().front().substr(kCalling.size());
  }

  /// Each row is what is set, and what stands between the beginning and the end of the command line.
  template <class Action>
  void ExpectCommandLines(std::span<const std::pair<const char*, const char*>> rows, const std::string& start,
                          const std::string& end) {
    for (const auto& [set, wanted] : rows) EXPECT_EQ(CommandLine<Action>(set), start + wanted + end) << set;
  }

  ScriptedServices services;
};

using Rows = std::pair<const char*, const char*>;
const std::string kStart = "\"exit\" \"0\" /NP /R:10 /W:30";

// clang-format off
TEST_F(RobocopyTest, WhatAllActionsSay) {
  constexpr Rows kRows[] = {
      {"SourceDir=%D%|DestDir=C:\\Files\\", R"("C:\My Files" "C:\Files\\" /NP /R:10 /W:30)"},
      {"Retries=-1|RetryWaitSec=0", R"("exit" "0" /NP /R:-1 /W:0)"},
      {"ExtraCmdLine+=/MT:8 \"/X Y\"|ExtraCmdLine+=%NONE%|ExtraCmdLine+=%D%", R"("exit" "0" /NP /R:10 /W:30 /MT:8 "/X Y" C:\My Files\)"},
      {"ReportExtraFiles=True|VerboseOutput=True|DisplayFileTimestamps=True|DisplayFullPathnames=True|SuppressFileClasses=True|"
       "SuppressFileDirSizes=True|DisableLoggingDirNames=True|DisableLoggingFileNames=True|DisableLoggingJobHeader=True|"
       "DisableLoggingJobSummary=True|AppendToLogFile=True",
       R"("exit" "0" /NP /R:10 /W:30 /NS /NJH /NFL /NDL /NJS /TS /NC /V /FP /X)"},
      {"LogFile=%D%log", R"("exit" "0" /NP /R:10 /W:30 /LOG:"C:\My Files\log" /TEE)"},
      {"LogFile=l|AppendToLogFile=True", R"("exit" "0" /NP /R:10 /W:30 /LOG+:"l" /TEE)"},
  };
  ExpectCommandLines<TVekRobocopyMirrorAction>(kRows, "", " /MIR");
}

TEST_F(RobocopyTest, WhichFilesAndFoldersAreMeant) {
  constexpr Rows kRows[] = {
      {"", ""},
      {"IncludeEmptyDirs=True", ""},
      {"IncludeEmptyDirs=True|IncludeSubDirs=True", " /S /E"},
      {"IncludeFilesAttrib=[aReadOnly,aSystem]", ""},
      {"IncludeFilesAttrib=[aReadOnly,aSystem,aNotContentIndexed,aArchive,aHidden,aTemporary,aCompressed,aOffline,aEncrypted]|DoIncludeUsingAttrib=True",
       " /IA:R /IA:S /IA:N /IA:A /IA:H /IA:T /IA:C /IA:O /IA:E"},
      {"ExcludeFilesAttrib=[aEncrypted,aReadOnly]", " /XA:R /XA:E"},
      {"OnlyArchiveFilesAndClearArchiveBit=True|ExcludeJunctionPoints=True|ExcludeTaggedChanged=True|ExcludeTaggedNewer=True|"
       "ExcludeTaggedOlder=True|ExcludeTaggedExtra=True|ExcludeTaggedLonely=True|IncludeTaggedSame=True|IncludeTaggedTweaked=True|"
       "OnlyListFiles=True|WaitForSharesToBeDefined=True|DelayToFreeUpBandwidth=5",
       " /M /XJ /XC /XN /XO /XX /XL /IS /IT /L /TBD /IPG:5"},
      {"ExcludeLargeFiles=True|ExcludeSmallFiles=True", ""},
      {"ExcludeLargeFiles=True|ExcludeSmallFiles=True|MaxFileSizeBytes=4294967295|MinFileSizeBytes=1", " /MAX:4294967295 /MIN:1"},
      {"ExcludeOldFiles=True|ExcludeNewFiles=True|ExcludeLADOldFiles=True|ExcludeLADNewFiles=True|UseMaxAgeDays=True|UseMinLADDays=True|"
       "MinLADDays=7|MinAgeDate=2007-03-05T00:00:00|MaxLADDate=1999-12-31T23:59:59",
       " /MAXAGE:0 /MINAGE:20070305 /MAXLAD:19991231 /MINLAD:7"},
      {"ExcludeFiles+=*.obj|ExcludeFiles+=a b\\|ExcludeDirs+=\"x\"|ExcludeDirs+=%D%", R"( /XF "*.obj" "a b\\" /XD "x" "C:\My Files\\")"},
  };
  ExpectCommandLines<TVekRobocopyMoveAction>(kRows, kStart, " /MOVE");
  EXPECT_TRUE(CommandLine<TVekRobocopyMoveAction>("PreserveSourceDirTree=True").ends_with(" /MOV"));
}

TEST_F(RobocopyTest, WhatACopyAdds) {
  constexpr Rows kRows[] = {
      {"", " /COPY:DAD"},
      {"CopyFlags=[]", " /COPY:"},
      {"CopyFlags=[cfAuditing,cfOwnership,cfSecurity]", " /COPY:SOA"},
      {"SetAttribInCopiedFiles=[aReadOnly,aSystem,aNotContentIndexed,aArchive,aHidden,aTemporary]|"
       "TurnOffAttribInCopiedFiles=[aTemporary,aSystem]|FATFileNames=True|FATFileTimes=True",
       " /COPY:DAD /A+:R /A+:S /A+:N /A+:A /A+:H /A+:T /A-:S /A-:T /FFT /FAT"},
  };
  ExpectCommandLines<TVekRobocopyCopyAction>(kRows, kStart + " /S", "");
}

TEST_F(RobocopyTest, OnlyASingleJobFileIsPassed) {
  constexpr Rows kRows[] = {{"JobFiles+=%D%a", R"( /JOB:"C:\My Files\a")"}, {"JobFiles+=%NONE%", ""}, {"JobFiles+=a|JobFiles+=b", ""}};
  ExpectCommandLines<TVekRobocopyJobAction>(kRows, kStart, "");
  EXPECT_EQ(CommandLine<TVekRobocopyJobAction>(""), "");
  EXPECT_THAT(Errors(), ElementsAre("Job Files: there is no line -1"));
}
// clang-format on

TEST_F(RobocopyTest, ExitCodes) {
  const struct {
    int code;
    bool wanted;
    std::string message;
  } cases[] = {
      {0, true, "Done - No changes"},
      {1, true, "Done - Copy successful"},
      {2, true, "Done - Extra files"},
      {3, true, ""},
      {4, false, "Done - Mismatches"},
      {5, false, ""},
      {8, false, "Done - Failed Copies"},
      {16, false, "Done - Fatal Error"},
      {255, false, ""},
  };
  TVekRobocopyCopyAction action(Context());
  action.SourceDir = "exit";
  for (const auto& [code, wanted, message] : cases) {
    action.DestDir = std::to_string(code);
    EXPECT_EQ(Run(action), wanted) << code;
    EXPECT_EQ(StringList(Lines().begin() + 1, Lines().end()),
              message.empty() ? StringList() : StringList{message});
  }
}

TEST_F(RobocopyTest, ExpansionsThatFailAreNamed) {
  constexpr Rows kRows[] = {
      {"SourceDir= ", "Source Dir: "},
      {"DestDir=%MISSING%", "Destination Dir: "},
      {"ExtraCmdLine+=|ExtraCmdLine+=%MISSING%", "Extra Command Line line 1: "},
      {"LogFile=%MISSING%", "Log file: "},
      {"ExcludeFiles+=%MISSING%", "Exclude file: %MISSING%: "},
      {"ExcludeDirs+=%MISSING%", "Exclude dir: %MISSING%: "},
  };
  for (const auto& [set, title] : kRows) {
    EXPECT_EQ(CommandLine<TVekRobocopyCopyAction>(set), "");
    EXPECT_THAT(Errors(), ElementsAre(testing::StartsWith(title)));
  }
}

TEST_F(RobocopyTest, AnythingButAFileIsNoRobocopy) {
  auto& options = static_cast<TVekRobocopyOptions&>(*services.optionsObject);
  TVekRobocopyMirrorAction action(Context());
  struct Problems final : IVekActionValidationError {
    void AddError(std::string_view title, std::string_view message) override {
      lines.push_back(std::string(title) + ": " + std::string(message));
    }
    StringList lines;
  };
  const std::string notFound =
      "Robocopy Exe: The Robocopy.exe file can not be found, please check location in Tools->Options";
  Problems none, folder, complete;
  options.SetRobocopyPath("");
  EXPECT_FALSE(action.Validate(none));
  EXPECT_THAT(none.lines,
              ElementsAre("Robocopy Exe: The Robocopy.exe file has not been specified in Tools->Options",
                          notFound, "Source Directory: The source directory must be specified",
                          "Destination Directory: The destination directory must be specified"));
  action.SourceDir = action.DestDir = " ";
  options.SetRobocopyPath(this->folder.Path());
  EXPECT_FALSE(action.Validate(folder));
  EXPECT_THAT(folder.lines, ElementsAre(notFound));
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Errors(), ElementsAre("The program to execute does not exist: " + this->folder.Path()));
  options.SetRobocopyPath(TestChild());
  EXPECT_TRUE(action.Validate(complete));
}

}  // namespace
