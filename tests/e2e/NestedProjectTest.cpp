#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/Vekrun.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string Log(const std::string& text) {
  return "<Action Type=\"SCRIPTACTION\"><Script Event=\"OnExecute\">Vek.Log(" + text + ");</Script></Action>";
}

std::string RunStep(const std::string& file, const std::string& properties = "") {
  return ActionOf("RUNPROJECT", "<ProjectFile>%PROJECTDIR%/" + file + "</ProjectFile>" + properties);
}

struct NestedProjects : testing::Test {
  VekrunResult Run(const StringList& options = {}) {
    StringList arguments{"run", folder.Path("p.vekproj")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunJsonl(arguments);
  }
  TempFolder folder;
};

TEST_F(NestedProjects, StandBelowTheirStepWithVariablesOfTheirOwn) {
  folder.Write("inner.vekproj",
               ProjectOf(Log("['NAME', 'COUNT', 'PROJECTNAME'].map(Vek.GetVariable) + '|' + "
                             "Vek.IsVariableDefined('OUTER')") +
                             "<Action Type=\"SCRIPTACTION\"><Script Event=\"OnExecute\">"
                             "Vek.SetVariable('RESULT', Vek.GetVariable('COUNT') * 2);</Script></Action>",
                         "<Variable Name=\"NAME\">declared</Variable><Variable Name=\"COUNT\" "
                         "Type=\"Integer\" Required=\"True\"/>"));
  folder.Write("p.vekproj",
               ProjectOf(ActionOf("ACTIONGROUP", "",
                                  RunStep("inner.vekproj",
                                          "<Variables><Line>NAME=%OUTER%=1</Line><Line>COUNT = 20</Line>"
                                          "</Variables><ExportVariables><Line>result</Line>"
                                          "</ExportVariables>")) +
                             Log("Vek.GetVariable('result') + 2"),
                         "<Variable Name=\"OUTER\">x</Variable>"));
  const VekrunResult result = Run();
  EXPECT_EQ(result.exitCode, 0) << result.out;
  EXPECT_THAT(result.Short(),
              ElementsAre("build-start", "start /1", "start /1/1", "start /1/1/1",
                          "message /1/1/1 x=1,20,inner|false", "end /1/1/1 success", "start /1/1/2",
                          "variable /1/1/2 RESULT 40", "end /1/1/2 success", "variable /1/1 result 40",
                          "end /1/1 success", "end /1 success", "start /2", "message /2 42", "end /2 success",
                          "build-end success"));
  EXPECT_EQ(result.events.back().at("actions"), 5);
}

TEST_F(NestedProjects, WhatCannotRunFailsTheStepAndSaysWhy) {
  folder.Write("required.vekproj", ProjectOf("", "<Variable Name=\"V\" Required=\"True\"/>"));
  folder.Write("broken.vekproj", ProjectOf("<Action Type=\"NOPE\"/>"));
  folder.Write("fails.vekproj", ProjectOf(ActionOf("HDELETE_FILE", "<FileSpec>no/*</FileSpec>")));
  folder.Write("a.vekproj", ProjectOf(RunStep("b.vekproj")));
  folder.Write("b.vekproj", ProjectOf(RunStep("./p.vekproj")));
  const struct {
    std::string step, path, message;
  } cases[] = {
      {RunStep("missing.vekproj"), "/1", "missing.vekproj: "},
      {RunStep("required.vekproj"), "/1", "variable V: a value is required"},
      {RunStep("broken.vekproj"), "/1", "broken.vekproj:4: action /1: unknown type \"NOPE\""},
      {RunStep("required.vekproj", "<Variables><Line>V</Line></Variables>"), "/1", "Variables: \"V\" is not"},
      {RunStep("required.vekproj",
               "<Variables><Line>V=1</Line></Variables><ExportVariables><Line>W</Line>"
               "</ExportVariables>"),
       "/1", "Export Variables: the project has no variable \"W\""},
      {RunStep("a.vekproj"), "/1/1/1", "the project would run itself: "},
      {ActionOf("RUNPROJECT", "<ProjectFile>x</ProjectFile>", RunStep("a.vekproj")), "/1", "No actions can"},
  };
  for (const auto& test : cases) {
    folder.Write("p.vekproj", ProjectOf(test.step));
    const VekrunResult result = Run();
    EXPECT_EQ(result.exitCode, 1) << test.message;
    const auto errors = result.Of("error");
    ASSERT_EQ(errors.size(), 1u) << result.out;
    EXPECT_EQ(errors[0].at("path"), test.path);
    EXPECT_THAT(errors[0].at("text"), HasSubstr(test.message));
  }
  folder.Write("p.vekproj", ProjectOf(RunStep("fails.vekproj") + Log("1")));
  EXPECT_EQ(Run({"-k"}).Of("message").size(), 1u);
}

TEST_F(NestedProjects, ThousandInEachOtherEndWithALine) {
  folder.Write("p.vekproj", ProjectOf(RunStep("0.vekproj")));
  for (int i = 0; i < 1000; ++i) {
    folder.Write(std::to_string(i) + ".vekproj", ProjectOf(RunStep(std::to_string(i + 1) + ".vekproj")));
  }
  const VekrunResult result = Run();
  EXPECT_EQ(result.exitCode, 1);
  ASSERT_EQ(result.Of("error").size(), 1u);
  EXPECT_THAT(result.Of("error")[0].at("text"), HasSubstr("nested more than 100 deep"));
}

TEST_F(NestedProjects, ShareSecretsAndProtectionAndEndTheirExports) {
  folder.Write("inner/inner.vekproj",
               ProjectOf(Log("'hunter2'") + ActionOf("HDELETE_DIR",
                                                     "<FileOrDirectory>%DIR%</FileOrDirectory>"
                                                     "<DeleteTree>True</DeleteTree>"),
                         "<Variable Name=\"DIR\"/><Variable Name=\"PASSWORD\" Secret=\"True\" "
                         "Export=\"True\">hunter2</Variable>"));
  const auto deleting = [](const std::string& name) {
    return RunStep("../inner/inner.vekproj",
                   "<IgnoreFailure>True</IgnoreFailure><Variables><Line>DIR="
                   "%PROJECTDIR%/../" +
                       name + "</Line></Variables>");
  };
  folder.Write("outer/p.vekproj",
               ProjectOf(deleting("inner") + deleting("outer") + Log("'hunter2'") +
                         ActionOf("HCREATEFILE", "<NewFileName>%PASSWORD%</NewFileName>")));
  const VekrunResult result = RunJsonl({"run", folder.Path("outer/p.vekproj")});
  EXPECT_THAT(result.out, testing::Not(HasSubstr("hunter2")));
  EXPECT_TRUE(folder.Exists("inner/inner.vekproj"));
  EXPECT_TRUE(folder.Exists("outer/p.vekproj"));
  ASSERT_EQ(result.Of("error").size(), 1u) << result.out;
  EXPECT_THAT(result.Of("error")[0].at("text"),
              testing::StartsWith("NewFileName: unknown variable \"PASSWORD\""));
}

struct AlwaysCase {
  std::string steps;
  std::vector<std::string> ran;
};

TEST_F(NestedProjects, StepsThatRunAlwaysCleanUp) {
  const std::string fail = ActionOf("HDELETE_FILE", "<FileSpec>no/*</FileSpec>");
  const std::string always = ActionOf("ACTIONGROUP", "<Always>True</Always>");
  const std::string plain = ActionOf("ACTIONGROUP", "");
  const std::string endless = "<Condition>(function () { for (;;) {} })()</Condition>";
  const std::string timeout = "<TimeoutSeconds>1</TimeoutSeconds>";
  const AlwaysCase cases[] = {
      {fail + plain + always + plain, {"/1 failure", "/3 success"}},
      {ActionOf("ACTIONGROUP", "", fail + always + plain) + plain + always,
       {"/1/1 failure", "/1/2 success", "/1 failure", "/3 success"}},
      {fail + ActionOf("ACTIONGROUP", "", always), {"/1 failure"}},
      {ActionOf("HDELETE_FILE", "<FileSpec>no/*</FileSpec>", always), {"/1 failure"}},
      {ActionOf("ACTIONGROUP", timeout, ActionOf("ACTIONGROUP", endless) + plain + always),
       {"/1/1 failure", "/1/3 success", "/1 failure"}},
      {fail + ActionOf("ACTIONGROUP", timeout + "<Always>True</Always>", ActionOf("ACTIONGROUP", endless)),
       {"/1 failure", "/2/1 failure", "/2 failure"}},
  };
  for (const AlwaysCase& test : cases) {
    folder.Write("p.vekproj", ProjectOf(test.steps));
    const VekrunResult result = Run();
    EXPECT_EQ(result.exitCode, 1);
    std::vector<std::string> ran;
    for (const auto& end : result.Of("action-end")) {
      ran.push_back(end.at("path").get<std::string>() + ' ' + end.at("result").get<std::string>());
    }
    EXPECT_EQ(ran, test.ran) << test.steps;
  }
}

}  // namespace
