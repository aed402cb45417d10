#include "gmock/gmock.h"

#include "coreapi/Vekservices.h"
#include "interaction/VekMultiQuestionAction.h"
#include "interaction/VekPromptForFileOrDirAction.h"
#include "interaction/VekQuestionAction.h"
#include "interaction/VekVariablePromptAction.h"
#include "support/ActionFixture.h"
#include "support/ScriptedServices.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct InteractiveTest : ActionFixture, testing::Test {
  using ActionFixture::Run;

  InteractiveTest() : ActionFixture({}, false) {}
  std::string Value(const std::string& name) {
    return Context().IsVariableDefined(name) ? VariantToText(Context().GetVariableValue(name)) : "(none)";
  }
  ScriptedServices user;
};

template <class Action>
void ExpectRefusedUnattended(void (*complete)(Action&)) {
  ActionFixture fixture;
  ScriptedServices user;
  Action action(fixture.Context());
  complete(action);
  EXPECT_FALSE(fixture.Run(action));
  EXPECT_THAT(fixture.Events().events, ElementsAre("message  This action must be run in interactive mode"));
  EXPECT_THAT(user.asked, IsEmpty());
  EXPECT_FALSE(action.CanRunUnderAsync());
}

TEST(Interactive, NothingIsAskedUnattended) {
  ExpectRefusedUnattended<TVekQuestionAction>([](auto& action) { action.PromptText = "?"; });
  ExpectRefusedUnattended<TVekMultiQuestionAction>([](auto& action) {
    action.PromptText = action.VekVariable = "X";
    action.Answers = {"a", "b"};
  });
  ExpectRefusedUnattended<TVekpromptForFileOrDirAction>([](auto& action) { action.VekVariable = "X"; });
  ExpectRefusedUnattended<TVekVariablePromptAction>([](auto& action) { action.Variables = {"X"}; });
}

TEST_F(InteractiveTest, AQuestionIsDecidedByItsButton) {
  using enum TAnswerAction;
  const struct {
    bool yesAndNo, cancelIsDefault;
    TAnswerAction action;
    int32_t pressed;
    bool succeeds;
    std::string style, value;
  } kCases[] = {
      {false, false, FailOnCancel, MessageBoxAnswer::Ok, true, "33", "(none)"},
      {false, true, FailOnCancel, MessageBoxAnswer::Cancel, false, "289", "(none)"},
      {true, false, FailOnCancel, MessageBoxAnswer::Yes, true, "36", "(none)"},
      {true, true, FailOnOK, MessageBoxAnswer::No, true, "292", "(none)"},
      {true, false, FailOnOK, MessageBoxAnswer::Yes, false, "36", "(none)"},
      {true, false, ResultIntoVariable, MessageBoxAnswer::No, true, "36", "False"},
      {false, false, ResultIntoVariable, MessageBoxAnswer::Ok, true, "33", "True"},
  };
  Context().SetVariable("WHAT", std::string("this"));
  for (const auto& test : kCases) {
    TVekQuestionAction action(Context());
    action.PromptText = "Do %WHAT%?";
    action.UseYesAndNo = test.yesAndNo;
    action.DefaultIsCancel = test.cancelIsDefault;
    action.AnswerAction = test.action;
    action.VekVariable = "ANSWER";
    user.pressed = test.pressed;
    EXPECT_EQ(Run(action), test.succeeds);
    EXPECT_THAT(user.asked, ElementsAre("Do this?", "Confirm?", test.style));
    EXPECT_EQ(Value("ANSWER"), test.value);
    EXPECT_THAT(Lines(), IsEmpty());
  }
}

TEST_F(InteractiveTest, AChoiceIsStoredAsTextOrNumber) {
  TVekMultiQuestionAction action(Context());
  action.PromptText = "Which?";
  action.Answers = {"one", "%EMPTY%", "two"};
  action.DefaultAnswer = 2;
  action.VekVariable = "CHOICE";
  Context().SetVariable("EMPTY", std::string(" "));
  user.answer = "2";
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(user.asked, ElementsAre("Which?", "one|two", "2"));
  EXPECT_EQ(Value("CHOICE"), "two");
  action.ResultIsNumber = true;
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Context().GetVariableValue("CHOICE"), Variant(int64_t{2}));

  user.answer.reset();
  EXPECT_FALSE(Run(action));
  EXPECT_EQ(Value("CHOICE"), "2");
  action.FailOnCancel = false;
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Context().GetVariableValue("CHOICE"), Variant(int64_t{0}));
  action.ResultIsNumber = false;
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Context().GetVariableValue("CHOICE"), Variant(std::string()));
  action.Answers.pop_back();
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("At least two answers are needed"));
}

TEST_F(InteractiveTest, APathIsOfferedAndStored) {
  TVekpromptForFileOrDirAction action(Context());
  action.PromptText = "Where?";
  action.VekVariable = "WHERE";
  Context().SetVariable("WHERE", std::string("as it was"));
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(user.asked, ElementsAre("Where?", "as it was", "All Files (*.*)|*.*", ""));
  action.FailOnCancel = false;
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Value("WHERE"), "as it was");
  action.PromptFor = TPromptForFileOrDir::pfDirectory;
  action.InitialPath = "%WHERE%/now";
  user.answer = "chosen";
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(user.asked, ElementsAre("Where?", "as it was/now"));
  EXPECT_EQ(Value("WHERE"), "chosen");
}

struct VariablePromptTest : InteractiveTest {
  VariablePromptTest() {
    Context().SetVariable("COUNT", int64_t{3});
    action.Title = "About %COUNT%";
    action.Variables = {"NAME", " ", "COUNT", "PW"};
    action.Prompts = {"Your name", "", "How many?"};
    action.SecretVariables = {"pw"};
  }
  TVekVariablePromptAction action{Context()};
};

TEST_F(VariablePromptTest, AsksUntilItFitsAndKeepsTypes) {
  user.typed = {"Ada", "many", "4", "1x"};
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(user.asked,
              ElementsAre("About 3|Your name|", "|How many?|3", "That is no value of type Integer.", "|PW|"));
  EXPECT_EQ(Context().GetVariableValue("COUNT"), Variant(int64_t{4}));
  EXPECT_THAT(Lines(), ElementsAre("NAME = Ada", "COUNT = 4", "PW = ********"));
  EXPECT_THAT(Events().events, testing::Contains("variable  PW=********"));
  EXPECT_EQ(Value("PW"), "1x");
}

TEST_F(VariablePromptTest, ACancelChangesNothing) {
  user.typed = {"Ada", "4"};
  EXPECT_FALSE(Run(action));
  EXPECT_EQ(Value("NAME") + ' ' + Value("COUNT"), "(none) 3");
  action.FailOnCancel = false;
  EXPECT_TRUE(Run(action));
}

TEST_F(VariablePromptTest, AsksOnlyForWhatIsBlank) {
  action.AskOnlyIfBlank = true;
  Context().SetVariable("PW", std::string("given"));
  user.typed = {"Ada"};
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(user.asked, ElementsAre("About 3|Your name|"));
  user.asked.clear();
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(user.asked, IsEmpty());
  Context().SendMessage("is given");
  EXPECT_THAT(Lines(), ElementsAre("is ********"));
}

}  // namespace
