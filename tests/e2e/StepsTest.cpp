#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/Vekrun.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string Group(const std::string& name, const std::string& inner = "") {
  return ActionOf("ACTIONGROUP", "<Name>" + name + "</Name>", inner);
}

struct Steps : testing::Test {
  Steps() {
    folder.Write(
        "p.vekproj",
        ProjectOf(Group("clean") +
                      ActionOf("LISTITERATOR", "<ListOfItems><Line>a</Line><Line>b</Line></ListOfItems>",
                               Group("build", ActionOf("ACTIONGROUP", "")) + Group("test")) +
                      ActionOf("ACTIONGROUP", "<Enabled>False</Enabled><Description>%OUT%</Description>",
                               ActionOf("ACTIONGROUP", "")),
                  "<Variable Name=\"OUT\" Export=\"True\">x y</Variable>"
                  "<Variable Name=\"TOKEN\" Secret=\"True\" Required=\"True\">hunter2</Variable>"));
  }
  TempFolder folder;
};

TEST_F(Steps, AreChosenByPathOrName) {
  const struct {
    StringList options;
    std::vector<std::string> ran;
  } cases[] = {
      {{"--only", "CLEAN"}, {"/1"}},
      {{"--only", "/2/1"}, {"/2", "/2/1", "/2/1/1", "/2/1", "/2/1/1"}},
      {{"--only", "clean", "--only", "test"}, {"/1", "/2", "/2/2", "/2/2"}},
      {{"--skip", "/2"}, {"/1"}},
      {{"--only", "/2", "--skip", "build"}, {"/2", "/2/2", "/2/2"}},
      {{"--only", "/3"}, {}},
  };
  for (const auto& test : cases) {
    StringList arguments{"run", folder.Path("p.vekproj")};
    arguments.insert(arguments.end(), test.options.begin(), test.options.end());
    const VekrunResult result = RunJsonl(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    StringList skipped, ran;
    for (const auto& end : result.Of("action-end")) {
      if (end.at("result") == "skipped") skipped.push_back(end.at("path"));
    }
    for (const auto& start : result.Of("action-start")) {
      const std::string path = start.at("path");
      if (std::ranges::find(skipped, path) == skipped.end()) ran.push_back(path);
    }
    EXPECT_EQ(ran, test.ran) << testing::PrintToString(test.options);
  }
  const auto wrong = RunVekrun({"run", folder.Path("p.vekproj"), "--only", "claen"});
  EXPECT_EQ(wrong.exitCode, 2);
  EXPECT_EQ(wrong.err, "vekrun: --only: the project has no step \"claen\"; did you mean \"clean\"?\n");
  EXPECT_EQ(RunVekrun({"run", folder.Path("p.vekproj"), "--skip", "/2/3"}).exitCode, 2);
}

TEST_F(Steps, AreListedWithWhatTheyUse) {
  EXPECT_EQ(RunVekrun({"list", folder.Path("p.vekproj")}).out,
            "Variables:\n"
            "  OUT    String  x y (exported)\n"
            "  TOKEN  String  ******** (required, secret)\n"
            "\n"
            "Steps:\n"
            "  /1      ACTIONGROUP   clean  Action Group\n"
            "  /2      LISTITERATOR         List Iterator\n"
            "  /2/1    ACTIONGROUP   build  Action Group\n"
            "  /2/1/1  ACTIONGROUP          Action Group\n"
            "  /2/2    ACTIONGROUP   test   Action Group\n"
            "  /3      ACTIONGROUP          %OUT% (disabled)\n"
            "  /3/1    ACTIONGROUP          Action Group (disabled)\n");
  const auto json = nlohmann::json::parse(RunVekrun({"list", folder.Path("p.vekproj"), "--json"}).out);
  EXPECT_EQ(json.at("variables")[1].at("value"), "********");
  EXPECT_EQ(json.at("actions")[6].at("path"), "/3/1");
  EXPECT_EQ(json.at("actions")[6].at("disabled"), true);
}

TEST_F(Steps, OfOneNameAreRefused) {
  folder.Write("p.vekproj", ProjectOf(Group("a", Group("b")) + "\n" + Group("B")));
  const auto result = RunVekrun({"list", folder.Path("p.vekproj")});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.err,
              HasSubstr(": action /2 ACTIONGROUP: property Name: \"B\" is the name of action /1/1 "
                        "already\n"));
}

}  // namespace
