#include <algorithm>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/SystemText.h"
#include "support/Vekrun.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

struct WrongUsage {
  StringList arguments;
  std::string message;  // on standard error
};

TEST(CommandLine, WrongUsageIsExitCode2WithAClearLine) {
  const TempFolder folder;
  folder.Write("not-a-package.so", "x");
  const WrongUsage cases[] = {
      {{}, "subcommand"},
      {{"completion", "ksh"}, "the shell must be bash, zsh or fish, not \"ksh\""},
      {{"rnu", "p.vekproj"}, "unknown command \"rnu\"; did you mean \"run\"?"},
      {{"help", "validat"}, "did you mean \"validate\"?"},
      {{"--log-fromat", "junit", "run", "p.vekproj"}, "did you mean \"--log-format\"?"},
      {{"exec", "HDELETE_FIEL"}, "unknown action type \"HDELETE_FIEL\"; did you mean \"HDELETE_FILE\"?"},
      {{"describe", "NOPE"}, "unknown action type \"NOPE\""},
      {{"exec", "HDELETE_FILE", "FileSpek=x"}, "did you mean \"FileSpec\"?"},
      {{"exec", "HDELETE_FILE", "DeleteHidden=maybe"}, "\"maybe\" is not True or False"},
      {{"exec", "HDELETE_FILE", "FileSpec"}, "property FileSpec: it must be of the form PROP=VALUE"},
      {{"exec", "HDELETE_FILE", "FileSpec+=x"}, "FileSpec"},
      {{"exec", "HDELETE_FILE", "FilesAffected=1"}, "FilesAffected"},
      {{"exec", "HDELETE_FILE", "--script", "OnStdOut=x.js"}, "x.js"},
      {{"exec", "HDELETE_FILE", "--script", "OnStdOut=" + folder.Path("not-a-package.so")}, "OnStdOut"},
      {{"exec", "HDELETE_FILE", "--option", "Robocopy"}, "NAME"},
      {{"exec", "HDELETE_FILE", "--drive", "XY=/"}, "X=DIR"},
      {{"exec", "HDELETE_FILE", "--drive", "Z=/tmp"}, "Z: is always /"},
      {{"exec", "HDELETE_FILE", "--log", ""}, "--log: the name of the file is empty"},
      {{"exec", "HDELETE_FILE", "-D", "A%B=1"}, "variable name"},
      {{"exec", "HDELETE_FILE", "--no-such-option"}, "--no-such-option"},
      {{"exec", "HDELETE_FILE", "--log-format", "xml"}, "--log-format xml: it must be text, jsonl or junit"},
      {{"exec", "HDELETE_FILE", "-v", "-q"}, "-v and -q"},
      {{"run", "p.vekproj", "--report", "xml=a"}, "--report xml=a: it must be text, jsonl or junit"},
      {{"run", "p.vekproj", "--report", "junit"}, "--report junit: it must be of the form FORMAT=FILE"},
      {{"run", "p.vekproj", "--report", "junit="}, "--report junit=: the name of the file is empty"},
      {{"actions", "--package", folder.Path("missing.so")}, "missing.so does not load"},
      {{"actions", "--package", folder.Path("not-a-package.so")}, "not-a-package.so does not load"},
      {{"actions", "--package", VEK_BIN_DIR "/" VEK_CORE_FILE}, "has no VekRegister"},
      {{"run", folder.Path("missing.vekproj")}, "missing.vekproj: " + SystemText(Win32Error::FileNotFound)},
      {{"run", folder.Path()}, SystemText(Win32Error::Directory)},
  };
  for (const WrongUsage& wrong : cases) {
    const ProgramResult result = RunVekrun(wrong.arguments);
    EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(wrong.arguments);
    EXPECT_THAT(result.err, HasSubstr(wrong.message)) << testing::PrintToString(wrong.arguments);
    EXPECT_EQ(result.out, "") << testing::PrintToString(wrong.arguments);
  }
}

TEST(CommandLine, HelpAndVersionSucceed) {
  for (const StringList& arguments :
       {StringList{"--help"}, {"help"}, {"help", "run"}, {"exec", "--help"}, {"--version"}}) {
    const ProgramResult result = RunVekrun(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.out, HasSubstr("vekrun"));
  }
}

TEST(CommandLine, AProjectRunsWhereverItStandsAmongTheOptions) {
  const TempFolder folder;
  const std::string project = folder.Path("p.VekProj");
  folder.Write("p.VekProj", ProjectOf(ActionOf("HCREATEFILE",
                                               "<NewFileName>%PROJECTDIR%/o</NewFileName>"
                                               "<OverwriteExisting>True</OverwriteExisting>"
                                               "<FileContents>%A%</FileContents>")));
  for (const StringList& arguments : {StringList{project, "-D", "A=run"},
                                      {"-q", "-D", "A=run", project},
                                      {"-DA=run", "run", project, "-v"},
                                      {"-D", "A=run", "run", "--unattended", project},
                                      {"--drive=X=/", "-D", "A=run", project}}) {
    folder.Write("o", "");
    const ProgramResult result = RunVekrun(arguments);
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(arguments) << result.err;
    EXPECT_EQ(folder.Read("o"), "run") << testing::PrintToString(arguments);
  }
}

TEST(CommandLine, ExecRunsOneAction) {
  const TempFolder folder;
  const VekrunResult result = RunJsonl({"exec", "hcreatefile", "NewFileName=" + folder.Path("a.txt"),
                                        "filecontents=%GREETING%, %% $(6 * 7)", "-D", "GREETING=Hello"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.Short(),
              ElementsAre("build-start", "start /1", "message /1 File created: " + folder.Path("a.txt"),
                          "end /1 success", "build-end success"));
  EXPECT_EQ(result.Of("action-start")[0].at("type"), "HCREATEFILE");
  EXPECT_EQ(folder.Read("a.txt"), "Hello, % 42");
}

TEST(CommandLine, ActionsListsTheCatalogueInRegistrationOrder) {
  const auto actions = nlohmann::json::parse(RunVekrun({"actions", "--json"}).out);
  StringList ids;
  for (const auto& action : actions) ids.push_back(action.at("typeId"));
  StringList wanted;  // of these the ones that there are
  for (const std::string& id :
       SplitAt("HCHECKFILE HCREATE_DIR HDELETE_DIR HMOVEDIR HASKQUESTION HDELETE_FILE HCOPYFILES "
               "HMOVEFILES HSETFILEATTRIB HFILEITERATOR FOLDERITERATOR HREADINI HWRITEINI SCRIPTACTION "
               "HTOUCHFILES HPROMPTFORVAR HEXECUTEPROG HRUNDOS HCONCAT HDISKSPACE HDATETIME VEKREADREG "
               "VEKSETREG VEKDELREG HRENAMEFILE HCREATEFILE WRITETOTEXTFILE HIFCOMREG HMULTIQUESTION "
               "HXCOPY ROBOCOPYICON ROBOCOPYJOB ROBOCOPYMOVE ROBOCOPYMIRROR PROMPTFORDIRORFILE "
               "READTEXTFILE READTEXTFILEITERATOR INIFILEITERATOR EXTRACTFILEINFO LISTITERATOR CRC32 "
               "MD5 HSHELLEXECUTE TEXTREPLACE SAVEVARTOINI LOADVARFROMINI TEXTFIND FILECOMPARE "
               "LOGVARIABLEVALS CLOSEPROCESS BEEP FILESETCOPY ACTIONGROUP RUNPROJECT",
               " ")) {
    if (std::ranges::find(ids, id) != ids.end()) wanted.push_back(id);
  }
  EXPECT_EQ(ids, wanted);
  EXPECT_GE(ids.size(), 19u);
  const auto deleteFiles = std::ranges::find(ids, "HDELETE_FILE") - ids.begin();
  EXPECT_EQ(actions[static_cast<size_t>(deleteFiles)],
            nlohmann::json::parse(R"json({"typeId": "HDELETE_FILE", "displayName": "Delete File(s)",
      "className": "TDeleteFilesAction", "category": "Files & Directories", "pages": ["TDeleteFilesFrame"]})json"));
}

TEST(CommandLine, DescribeAnswersWhatTheClassAnswers) {
  const auto answer = nlohmann::json::parse(RunVekrun({"describe", "WRITETOTEXTFILE", "--json"}).out);
  EXPECT_EQ(answer.at("actionName"), "Write to Text File");
  EXPECT_EQ(answer.at("helpTopicId"), 3230);
  EXPECT_EQ(answer.at("quickHelpFilename"), "Plugins\\WriteToTextFile.html");
  EXPECT_EQ(answer.at("pages")[0].at("className"), "TWriteToTextFileFrame");
  EXPECT_EQ(answer.at("pages")[0].at("controls")[6],
            nlohmann::json::parse(R"({"name": "rbToStart", "kind": "RadioButton", "caption": "Start of File",
      "hint": "", "property": "WriteToPosition", "choices": ["toStart"]})"));
  const auto& last = answer.at("properties").back();
  EXPECT_EQ(last,
            nlohmann::json::parse(R"({"name": "WriteToPosition", "type": "Enumeration", "default": "toEnd",
      "stored": true, "inherited": false, "values": ["toStart", "toEnd"],
      "meaning": ["Specify either Start or End to write the new content to"]})"));
  EXPECT_EQ(answer.at("properties")[0].at("name"), "Name");
  EXPECT_FALSE(last.contains("role"));
  EXPECT_EQ(answer.at("properties")[9].at("role"), "file");
  EXPECT_EQ(answer.at("properties")[10].at("role"), "plain");
  EXPECT_EQ(answer.at("aliases")[0], "[Action]");

  const auto deleteFiles = nlohmann::json::parse(RunVekrun({"describe", "HDELETE_FILE", "--json"}).out);
  for (const auto& editor : deleteFiles.at("editors")) {
    EXPECT_EQ(editor.at("editor"), "TFileNameEditEx");
    EXPECT_EQ(editor.at("applies"), false);
  }
  EXPECT_EQ(deleteFiles.at("editors").size(), 2u);
}

}  // namespace
