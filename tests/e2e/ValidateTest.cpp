#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/Vekrun.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Validate : testing::Test {
  /// The problems, "LINE PATH TITLE: MESSAGE" each.
  StringList Problems(const std::string& text, StringList options = {}, int exitCode = 1) {
    folder.Write("p.vekproj", text);
    options.insert(options.begin(), {"validate", folder.Path("p.vekproj"), "--json"});
    const ProgramResult result = RunVekrun(options);
    StringList problems;
    for (const auto& problem : nlohmann::json::parse(result.out)) {
      EXPECT_EQ(problem.at("file"), folder.Path("p.vekproj"));
      problems.push_back(
          std::to_string(problem.at("line").get<int>()) + ' ' + problem.at("path").get<std::string>() + ' ' +
          problem.at("title").get<std::string>() + ": " + problem.at("message").get<std::string>());
    }
    EXPECT_EQ(result.exitCode, problems.empty() ? 0 : exitCode) << result.out << result.err;
    return problems;
  }
  TempFolder folder;
};

TEST_F(Validate, LooksInsideEveryText) {
  const std::string variables = "<Variable Name=\"VERSION\">1</Variable>";
  const auto command = [](const std::string& text) {
    return ActionOf("HRUNDOS", "<Command>" + text + "</Command>");
  };
  const auto when = [](const std::string& text) {
    return ActionOf("ACTIONGROUP", "<Condition>" + text + "</Condition>");
  };
  const std::string setter =
      "<Action Type=\"SCRIPTACTION\"><Script Event=\"OnExecute\">Vek.SetVariable('SET', "
      "1);</Script></Action>";
  const struct {
    std::string actions;
    std::string problem;  // of the first action, without its place; empty for none
  } cases[] = {
      {command("%version% %PATH% 100% %%x%% $$(x) $(VERSION + Math.PI)"), ""},
      {command("%VERISON%"), "Command: unknown variable \"VERISON\"; did you mean \"VERSION\"?"},
      {command("$(1 +)"), "Command: expression \"$(1 +)\": SyntaxError: parse error (line 1, end of input)"},
      {command("$(VERISON)"),
       "Command: expression \"$(VERISON)\": unknown variable \"VERISON\"; did you mean \"VERSION\"?"},
      {command("$(VERSION"), "Command: expression \"$(VERSION\" has no closing parenthesis"},
      {command("  "), "Command: The text is blank"},
      {command("%SET%") + setter, ""},
      {command("%LOOP%") + ActionOf("LISTITERATOR",
                                    "<LoopVariable>LOOP</LoopVariable><ListOfItems><Line>a</Line>"
                                    "</ListOfItems>"),
       ""},
      {when("VERSION == \"VERISON\" &amp;&amp; VERSION.length &gt; 1"), ""},
      {command("%EX% %NO%") + ActionOf("LISTITERATOR",
                                       "<LoopVariable>E%VERSION%</LoopVariable><ListOfItems><Line>a</Line>"
                                       "</ListOfItems>"),
       "Command: unknown variable \"NO\""},
      {ActionOf("RUNPROJECT", "<ProjectFile>no.vekproj</ProjectFile>"),
       "Project File: there is no file \"no.vekproj\""},
      {ActionOf("RUNPROJECT", "<ProjectFile>%VERSION%</ProjectFile><Variables><Line>=x</Line></Variables>"),
       "Variables: \"=x\" is not of the form NAME=VALUE"},
      {when("typeof NO == 'undefined' || NO"), ""},
      {when("/* Vek.ActionByName('no') */ Vek.ActionByName('serch').Name == '//'") +
           ActionOf("ACTIONGROUP", "<Name>Search</Name>"),
       "Condition: the project has no step \"serch\"; did you mean \"Search\"?"},
      {when("VERISON == 1"), "Condition: unknown variable \"VERISON\"; did you mean \"VERSION\"?"},
      {when("VERSION =="), "Condition: SyntaxError: parse error (line 1, end of input)"},
      {ActionOf("FILESETCOPY", "<FileSetName>Sorces</FileSetName><DestinationFolder>x</DestinationFolder>"),
       "FileSet: the project has no file set \"Sorces\"; did you mean \"Sources\"?"},
      {ActionOf("LISTITERATOR", ""), "ListOfItems: Nothing has been set, so that there is nothing to do"},
      {ActionOf("ACTIONGROUP", "<Enabled>False</Enabled>", command("%NO%")), ""},
  };
  const std::string start = "<VekProject Version=\"1\"><Variables>" + variables +
                            "</Variables><FileSets><FileSet Name=\"Sources\" BaseDirectory=\".\"/></FileSets>"
                            "<Actions>\n";
  for (const auto& test : cases) {
    const StringList problems = Problems(start + test.actions + "</Actions></VekProject>");
    if (test.problem.empty()) {
      EXPECT_THAT(problems, IsEmpty()) << test.actions;
    } else {
      EXPECT_THAT(problems, ElementsAre("2 /1 " + test.problem)) << test.actions;
    }
  }
}

TEST_F(Validate, TellsAllProblemsWithTheirPlaces) {
  const std::string project =
      ProjectOf("<Action Type=\"SCRIPTACTION\">\n<Script Event=\"OnExecute\">\nif (</Script></Action>\n" +
                    ActionOf("HDELETE_FILE", "\n<FileSpec>%DIR%/x</FileSpec>\n<Condition>)</Condition>"),
                "<Variable Name=\"A\">%B%</Variable><Variable Name=\"C\">%A%%D%</Variable>"
                "<Variable Name=\"D\"/>");
  EXPECT_THAT(
      Problems(project),
      ElementsAre("3  variable A: unknown variable \"B\"",
                  "3  variable C: variable \"D\" has no value yet: declared values are expanded in order of "
                  "declaration",
                  "6 /1 script OnExecute: line 2: SyntaxError: parse error (line 2, end of input)",
                  "10 /2 Condition: SyntaxError: empty expression not allowed (line 1, end of input)",
                  "9 /2 File Specification: unknown variable \"DIR\""));
  folder.Write("v.env", "B=1\n");
  EXPECT_EQ(Problems(project, {"-D", "DIR=x", "-D", "D=x", "--vars", folder.Path("v.env")}).size(), 2u);
  EXPECT_THAT(RunVekrun({"validate", folder.Path("p.vekproj")}).out,
              testing::StartsWith(folder.Path("p.vekproj") + ":3: variable A: unknown variable \"B\"\n"));
}

TEST_F(Validate, TellsAllFaultsOfAFile) {
  EXPECT_THAT(Problems("<VekProject Version=\"1\" Odd=\"1\">\n"
                       "<Variables><Variable Name=\"N\" Type=\"Integer\">x</Variable></Variables>\n"
                       "<Actions><Action Type=\"NOPE\"><Actions>\n"
                       "<Action Type=\"HDELETE_FILE\"><Properties>\n"
                       "<Recurse2>x</Recurse2><DeleteHidden>maybe</DeleteHidden><FileSpec/></Properties>\n"
                       "<Script Event=\"No\"/></Action></Actions></Action></Actions></VekProject>",
                       {}, 2),
              ElementsAre("1  : unknown attribute \"Odd\" of VekProject",
                          "2  variable N: \"x\" is no value of type Integer", "3 /1 : unknown type \"NOPE\"",
                          "5 /1/1 : unknown property \"Recurse2\"",
                          "5 /1/1 property DeleteHidden: \"maybe\" is not True or False",
                          "6 /1/1 : script event \"No\": the action has no script events"));
  EXPECT_EQ(Problems("<VekProject", {}, 2).size(), 1u);
  const ProgramResult missing = RunVekrun({"validate", folder.Path("missing"), "--json"});
  EXPECT_EQ(nlohmann::json::parse(missing.out).at(0).at("file"), folder.Path("missing"));
  EXPECT_EQ(missing.exitCode, 2);
}

}  // namespace
