#include "gmock/gmock.h"

#include "process/Vekrunscriptaction.h"
#include "support/ActionFixture.h"

namespace {

struct RunScriptTest : ActionFixture, testing::Test {
  using ActionFixture::Run;

  bool RunScript(const std::string& text) {
    action.GetScriptByName("OnExecute")->SetText(text);
    return Run(action);
  }
  TVekScriptAction action{Context()};
};

TEST_F(RunScriptTest, TheResultIsWhatTheScriptLeaves) {
  struct Case {
    std::string script;
    bool wanted;
  };
  const Case cases[] = {
      {"", true},
      {"var x = 1;", true},
      {"ActionResult = false;", false},
      {"ActionResult = 0;", false},
      {"ActionResult = 'yes';", true},
      {"ActionResult = 'False';", false},
      {"ActionResult = ActionResult && Action.RetryCount == 2;", true},
  };
  action.RetryCount = 2;
  for (const Case& test : cases) {
    EXPECT_EQ(RunScript(test.script), test.wanted) << test.script;
    EXPECT_TRUE(Lines().empty() && Errors().empty());
  }
}

TEST_F(RunScriptTest, AScriptThatThrowsFailsTheStep) {
  EXPECT_FALSE(RunScript("ActionResult = true;\nthrow new Error('no good');"));
  ASSERT_EQ(Errors().size(), 1u);
  EXPECT_THAT(Errors()[0],
              testing::AllOf(testing::HasSubstr("OnExecute, line 2"), testing::HasSubstr("no good")));
}

TEST_F(RunScriptTest, ReachesVariablesAndTheLog) {
  Context().SetVariable("COUNT", int64_t{4});
  EXPECT_TRUE(RunScript("Vek.SetVariable('COUNT', Vek.GetVariable('COUNT') + 1); Vek.Log('seen');"));
  EXPECT_EQ(VariantToText(Context().GetVariableValue("COUNT")), "5");
  EXPECT_THAT(Lines(), testing::ElementsAre("seen"));
}

}  // namespace
