#include <map>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/TestChild.h"
#include "support/Vekrun.h"

using testing::Contains;
using testing::ElementsAre;

namespace {

StringList RunChild(const std::string& parameters, const StringList& more = {}) {
  StringList arguments{"exec", "HEXECUTEPROG", "ProgramName=" + TestChild(), "Params=" + parameters};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

TEST(Programs, OutputThatIsNotUtf8LeavesTheLogsValid) {
  const VekrunResult result = RunJsonl(RunChild("bytes one~xFFtwo~n~x01"));
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_EQ(result.Of("message").size(), 4u);
  const auto text = RunVekrun(RunChild("bytes one~xFFtwo", {"--log-format", "junit"}));
  EXPECT_TRUE(IsUtf8(text.out));
}

TEST(Programs, TheLogTellsWhatWasStartedAndWhichLinesItWrote) {
  const TempFolder folder;
  folder.Write("out.js", "Vek.Log('of the script')");
  const StringList command =
      RunChild("bytes out err~xC3~xA4",
               {"-v", "StartInDir=" + folder.Path(), "--script", "OnStdOut=" + folder.Path("out.js")});
  const VekrunResult result = RunJsonl(command);
  ASSERT_EQ(result.Of("process").size(), 1u) << result.out << result.err;
  const nlohmann::json process = result.Of("process")[0];
  EXPECT_EQ(process.at("path"), "/1");
  EXPECT_EQ(process.at("folder"), folder.Path());
  EXPECT_THAT(process.at("commandLine").get<std::string>(), testing::HasSubstr(" bytes out "));
  std::map<std::string, nlohmann::json> streams;
  for (const auto& message : result.Of("message")) streams[message.at("text")] = message.value("stream", "");
  EXPECT_EQ(streams["out"], "stdout");
  EXPECT_EQ(streams["err\u00E4"], "stderr");
  EXPECT_EQ(streams["of the script"], "");
  EXPECT_THAT(RunVekrun(command).out, testing::HasSubstr("\n  Running in " + folder.Path() + ": "));
}

TEST(Programs, ATimeOutEndsAProgramAndWhatItStarted) {
  const VekrunResult result = RunJsonl(RunChild("sleep 60 started", {"TimeoutSeconds=1"}));
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.Short(), Contains("status /1 Program returned code  : 999|Terminated by user"));
  EXPECT_THAT(result.Short(), Contains("error /1 Timed out after 1 seconds"));
}

TEST(Programs, CtrlCEndsAProgram) {
  const VekrunResult result = RunJsonl(RunChild("sleep 60"), {.interruptAt = "\"process\""});
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_THAT(result.Short(), Contains("status /1 Program returned code  : 999|Terminated by user"));
  EXPECT_EQ(result.events.back().at("result"), "stopped");
}

TEST(Programs, ScriptsAreAttachedOnTheCommandLine) {
  const TempFolder folder;
  folder.Write("out.js", "Vek.SetVariable('SEEN', Data); Data = '<' + Data + '>';");
  const VekrunResult result =
      RunJsonl(RunChild("bytes text", {"--script", "onstdout=" + folder.Path("out.js")}));
  EXPECT_EQ(result.exitCode, 0) << result.out;
  EXPECT_THAT(result.Short(), Contains("variable /1 SEEN text"));
  EXPECT_THAT(result.Short(), Contains("message /1 <text>"));
}

TEST(Programs, ACommandGoesThroughTheInterpreter) {
  const VekrunResult result = RunJsonl({"exec", "HRUNDOS", "Command=echo one&& exit 3", "SuccessRC=2"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.Short(),
              ElementsAre("build-start", "start /1", "message /1 one", "status /1 Program returned code  : 3",
                          "end /1 failure", "build-end failure"));
}

TEST(Programs, RobocopyIsTheProgramThatTheOptionsName) {
  const VekrunResult result = RunJsonl({"exec", "ROBOCOPYMIRROR", "SourceDir=exit", "DestDir=1", "--option",
                                        "Robocopy.Location=" + TestChild()});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.Short(),
              ElementsAre("build-start", "start /1",
                          R"(message /1 Calling Robocopy with command line: "exit" "1" /NP /R:10 /W:30 /MIR)",
                          "message /1 Done - Copy successful", "end /1 success", "build-end success"));
}

TEST(Programs, APropertyThatRefusesItsValueSaysSo) {
  const VekrunResult result = RunJsonl({"exec", "HSHELLEXECUTE", "FileSpec=*.txt"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err,
            "vekrun: Wildcards are not allowed.  Use with the FileIterator action to perform action on "
            "multiple files.\n");
  EXPECT_THAT(result.Short(), Contains("message /1 File does not exist: "));
}

TEST(IniFiles, AValueIsWrittenAndRead) {
  const TempFolder folder;
  folder.Write("a.ini", "; kept\n[One]\n  Key = old ; too\n");
  const StringList where{"IniFile=" + folder.Path("a.ini"), "Section=one", "ValueName=KEY"};
  StringList write{"exec", "HWRITEINI", "NewValue=%NEW%", "-D", "NEW=new"};
  write.insert(write.end(), where.begin(), where.end());
  EXPECT_EQ(RunJsonl(write).exitCode, 0);
  StringList read{"exec", "HREADINI", "VariableName=V"};
  read.insert(read.end(), where.begin(), where.end());
  EXPECT_THAT(RunJsonl(read).Short(), Contains("variable /1 V new"));
  EXPECT_THAT(folder.Read("a.ini"), testing::StartsWith("; kept\n[One]\n"));
}

}  // namespace
