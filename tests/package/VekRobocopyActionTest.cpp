#include <functional>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "process/VekRobocopyMainAction.h"
#include "process/VekRobocopyOptions.h"
#include "support/ActionFixture.h"
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

  template <class Action>
  std::string CommandLine(const std::function<void(Action&)>& change) {
    Action action(Context());
    action.SourceDir = "exit";
    action.DestDir = "0";
    change(action);
    Run(action);
    if (Lines().empty() || !Lines().front().starts_with(kCalling)) return "";
    return Lines().front().substr(kCalling.size());
  }

  ScriptedServices services;
};

template <class Action>
struct Case {
  std::function<void(Action&)> change;
  std::string wanted;  // behind what all command lines begin with
};

TEST_F(RobocopyTest, WhatAllActionsSay) {
  using A = TVekRobocopyMirrorAction;
  const Case<A> cases[] = {
      {[](A& a) { a.SourceDir = "%D%", a.DestDir = "C:\\Files\\"; },
       R"("C:\My Files" "C:\Files\\" /NP /R:10 /W:30 /MIR)"},
      {[](A& a) { a.Retries = -1, a.RetryWaitSec = 0; }, R"("exit" "0" /NP /R:-1 /W:0 /MIR)"},
      {[](A& a) {
         a.ExtraCmdLine = {"/MT:8 \"/X Y\"", "%NONE%", "%D%"};
       },
       R"("exit" "0" /NP /R:10 /W:30 /MT:8 "/X Y" C:\My Files\ /MIR)"},
      {[](A& a) {
         a.ReportExtraFiles = a.VerboseOutput = a.DisplayFileTimestamps = a.DisplayFullPathnames =
             a.SuppressFileClasses = a.SuppressFileDirSizes = a.DisableLoggingDirNames =
                 a.DisableLoggingFileNames = a.DisableLoggingJobHeader = a.DisableLoggingJobSummary = true;
         a.AppendToLogFile = true;
       },
       R"("exit" "0" /NP /R:10 /W:30 /NS /NJH /NFL /NDL /NJS /TS /NC /V /FP /X /MIR)"},
      {[](A& a) { a.LogFile = "%D%log"; }, R"("exit" "0" /NP /R:10 /W:30 /LOG:"C:\My Files\log" /TEE /MIR)"},
      {[](A& a) { a.LogFile = "l", a.AppendToLogFile = true; },
       R"("exit" "0" /NP /R:10 /W:30 /LOG+:"l" /TEE /MIR)"},
  };
  for (const auto& [change, wanted] : cases) EXPECT_EQ(CommandLine<A>(change), wanted);
}

TEST_F(RobocopyTest, WhichFilesAndFoldersAreMeant) {
  using A = TVekRobocopyMoveAction;
  const auto all = TRobocopyAttribFullSet::FromBits(0x1FF);
  const Case<A> cases[] = {
      {[](A&) {}, ""},
      {[](A& a) { a.IncludeEmptyDirs = true; }, ""},
      {[](A& a) { a.IncludeEmptyDirs = a.IncludeSubDirs = true; }, " /S /E"},
      {[&](A& a) { a.IncludeFilesAttrib = all; }, ""},
      {[&](A& a) { a.IncludeFilesAttrib = all, a.DoIncludeUsingAttrib = true; },
       " /IA:R /IA:S /IA:N /IA:A /IA:H /IA:T /IA:C /IA:O /IA:E"},
      {[](A& a) {
         a.ExcludeFilesAttrib = {TRobocopyAttribs::aEncrypted, TRobocopyAttribs::aReadOnly};
       },
       " /XA:R /XA:E"},
      {[](A& a) {
         a.OnlyArchiveFilesAndClearArchiveBit = a.ExcludeJunctionPoints = a.ExcludeTaggedChanged =
             a.ExcludeTaggedNewer = a.ExcludeTaggedOlder = a.ExcludeTaggedExtra = a.ExcludeTaggedLonely =
                 a.IncludeTaggedSame = a.IncludeTaggedTweaked = a.OnlyListFiles = a.WaitForSharesToBeDefined =
                     true;
         a.DelayToFreeUpBandwidth = 5;
       },
       " /M /XJ /XC /XN /XO /XX /XL /IS /IT /L /TBD /IPG:5"},
      {[](A& a) { a.ExcludeLargeFiles = a.ExcludeSmallFiles = true; }, ""},
      {[](A& a) {
         a.ExcludeLargeFiles = a.ExcludeSmallFiles = true;
         a.MaxFileSizeBytes = 4294967295, a.MinFileSizeBytes = 1;
       },
       " /MAX:4294967295 /MIN:1"},
      {[](A& a) {
         a.ExcludeOldFiles = a.ExcludeNewFiles = a.ExcludeLADOldFiles = a.ExcludeLADNewFiles = true;
         a.UseMaxAgeDays = a.UseMinLADDays = true;
         a.MinLADDays = 7;
         a.MinAgeDate = *ParseIso8601("2007-03-05"), a.MaxLADDate = *ParseIso8601("1999-12-31T23:59:59");
       },
       " /MAXAGE:0 /MINAGE:20070305 /MAXLAD:19991231 /MINLAD:7"},
      {[](A& a) {
         a.ExcludeFiles = {"*.obj", "a b\\"}, a.ExcludeDirs = {"\"x\"", "%D%"};
       },
       R"( /XF "*.obj" "a b\\" /XD "x" "C:\My Files\\")"},
  };
  for (const auto& [change, wanted] : cases) {
    EXPECT_EQ(CommandLine<A>(change), "\"exit\" \"0\" /NP /R:10 /W:30" + wanted + " /MOVE");
  }
  EXPECT_TRUE(CommandLine<A>([](A& a) { a.PreserveSourceDirTree = true; }).ends_with(" /MOV"));
}

TEST_F(RobocopyTest, WhatACopyAdds) {
  using A = TVekRobocopyCopyAction;
  using enum TRobocopyCopyFlags;
  const Case<A> cases[] = {
      {[](A&) {}, " /COPY:DAD"},
      {[](A& a) { a.CopyFlags = {}; }, " /COPY:"},
      {[](A& a) {
         a.CopyFlags = {cfAuditing, cfOwnership, cfSecurity};
       },
       " /COPY:SOA"},
      {[](A& a) {
         a.SetAttribInCopiedFiles = TRobocopyAttribSet::FromBits(0x3F);
         a.TurnOffAttribInCopiedFiles = {TRobocopyAttribsRange::aTemporary, TRobocopyAttribsRange::aSystem};
         a.FATFileNames = a.FATFileTimes = true;
       },
       " /COPY:DAD /A+:R /A+:S /A+:N /A+:A /A+:H /A+:T /A-:S /A-:T /FFT /FAT"},
  };
  for (const auto& [change, wanted] : cases) {
    EXPECT_EQ(CommandLine<A>(change), "\"exit\" \"0\" /NP /R:10 /W:30 /S" + wanted);
  }
}

TEST_F(RobocopyTest, OnlyASingleJobFileIsPassed) {
  using A = TVekRobocopyJobAction;
  const std::string start = "\"exit\" \"0\" /NP /R:10 /W:30";
  EXPECT_EQ(CommandLine<A>([](A& a) { a.JobFiles = {"%D%a"}; }), start + R"( /JOB:"C:\My Files\a")");
  EXPECT_EQ(CommandLine<A>([](A& a) { a.JobFiles = {"%NONE%"}; }), start);
  EXPECT_EQ(CommandLine<A>([](A& a) { a.JobFiles = {"a", "b"}; }), start);
  EXPECT_EQ(CommandLine<A>([](A&) {}), "");
  EXPECT_THAT(Errors(), ElementsAre("Job Files: there is no line -1"));
}

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
  const std::pair<std::function<void(TVekRobocopyCopyAction&)>, std::string> cases[] = {
      {[](auto& a) { a.SourceDir = " "; }, "Source Dir: "},
      {[](auto& a) { a.DestDir = "%MISSING%"; }, "Destination Dir: "},
      {[](auto& a) {
         a.ExtraCmdLine = {"", "%MISSING%"};
       },
       "Extra Command Line line 1: "},
      {[](auto& a) { a.LogFile = "%MISSING%"; }, "Log file: "},
      {[](auto& a) { a.ExcludeFiles = {"%MISSING%"}; }, "Exclude file: %MISSING%: "},
      {[](auto& a) { a.ExcludeDirs = {"%MISSING%"}; }, "Exclude dir: %MISSING%: "},
  };
  for (const auto& [change, title] : cases) {
    EXPECT_EQ(CommandLine<TVekRobocopyCopyAction>(change), "");
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
