#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/Vekrun.h"

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct GivenVariables : testing::Test {
  GivenVariables() {
    folder.Write("p.vekproj", ProjectOf(ActionOf("HCREATEFILE",
                                                 "<NewFileName>%PROJECTDIR%/o</NewFileName>"
                                                 "<OverwriteExisting>True</OverwriteExisting>"
                                                 "<FileContents>%VERSION%|%COUNT%</FileContents>"),
                                        "<Variable Name=\"VERSION\" Required=\"True\"/>"
                                        "<Variable Name=\"COUNT\" Type=\"Integer\" Required=\"True\"/>"));
  }
  ProgramResult Run(StringList options) {
    options.insert(options.begin(), {"run", folder.Path("p.vekproj")});
    return RunVekrun(options);
  }
  TempFolder folder;
};

TEST_F(GivenVariables, FilesGiveVariables) {
  const struct {
    std::string lines;
    StringList options;
    std::string written;
  } cases[] = {
      {"VERSION=1.4\nCOUNT=2\n", {}, "1.4|2"},
      {"# a comment\r\n\r\nexport VERSION = two words # and a comment\r\nCOUNT=2", {}, "two words|2"},
      {"\xEF\xBB\xBFVERSION='%A% \\$x' # raw\nCOUNT=\"2\"", {}, "%A% \\$x|2"},
      {"VERSION=\"a \\\"b\\\" \\\\ \\$c C:\\d # e\"\nCOUNT=1\nCOUNT=2", {}, "a \"b\" \\ $c C:\\d # e|2"},
      {"VERSION=C:\\it's#1\nCOUNT=2", {"-D", "count=3"}, "C:\\it's#1|3"},
  };
  for (const auto& test : cases) {
    folder.Write("v.env", test.lines);
    StringList options = test.options;
    options.insert(options.end(), {"--vars", folder.Path("v.env")});
    EXPECT_EQ(Run(options).exitCode, 0) << test.lines;
    EXPECT_EQ(folder.Read("o"), test.written);
  }
}

TEST_F(GivenVariables, WhatIsBrokenOrMissingIsExitCode2) {
  const struct {
    std::string lines;
    std::string message;
  } cases[] = {
      {"COUNT=1", "p.vekproj:3: variable VERSION: a value is required (-D VERSION=VALUE)"},
      {"VERSION=' '\nCOUNT=1", "variable VERSION: a value is required"},
      {"VERSION=1", "variable COUNT: a value is required"},
      {"VERSION=1\nCOUNT=many", "v.env:2: COUNT: \"many\" is no value of type Integer"},
      {"\nVERSION", "v.env:2: the line is not of the form NAME=VALUE"},
      {"VERSION=\"1\nCOUNT=\"2", "v.env:1: the quote is not closed"},
      {"A='1' 2", "v.env:1: there is text behind the closing quote"},
      {"A B=1", "v.env:1: \"A B\" is no variable name"},
      {"A=1\nB=\xFF", "v.env:2: the byte \"\\xFF\" is not UTF-8"},
  };
  for (const auto& test : cases) {
    folder.Write("v.env", test.lines);
    const ProgramResult result = Run({"--vars", folder.Path("v.env")});
    EXPECT_EQ(result.exitCode, 2) << test.lines;
    EXPECT_THAT(result.err, HasSubstr(test.message));
    EXPECT_FALSE(folder.Exists("o"));
  }
}

TEST_F(GivenVariables, ANameThatIsNearlyDeclaredIsTold) {
  const ProgramResult result =
      Run({"-D", "VERSION=1", "-D", "COUNT=1", "-D", "VERSOIN=2", "-D", "OTHER=3", "-D", "version=1"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err,
            "vekrun: -D VERSOIN: the project declares no such variable; did you mean \"VERSION\"?\n");
}

TEST_F(GivenVariables, ProgramsFindExportedOnesAsTheyAreJustThen) {
  const std::string print = ActionOf("HEXECUTEPROG", "<ProgramName>" VEK_BIN_DIR "/" VEK_TEST_CHILD
                                                     "</ProgramName><Params>variable VEK_Test</Params>");
  const std::string change =
      "<Action Type=\"SCRIPTACTION\"><Script Event=\"OnExecute\">Vek.SetVariable(\"vek_test\", 2);</Script>"
      "</Action>";
  folder.Write("p.vekproj",
               ProjectOf(print + change + print,
                         "<Variable Name=\"VEK_Test\" Export=\"True\">%PROJECTNAME%</Variable>"));
  const VekrunResult result = RunJsonl({"run", folder.Path("p.vekproj")});
  EXPECT_THAT(result.Short(), testing::IsSupersetOf({"message /1 p", "message /3 2"})) << result.err;
}

}  // namespace
