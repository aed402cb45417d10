#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/ActionFixture.h"
#include "support/OsFixture.h"
#include "textini/VekReadTextFileAction.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ReadTextFile : ActionFixture, testing::Test {
  using ActionFixture::Run;

  ReadTextFile() {
    action.FileName = folder.Path("text.txt");
    action.VekVariable = "V";
    action.PutContentsInVar = true;
  }

  void SetScript(const std::string& text) { action.GetScriptByName("OnReadLine")->SetText(text); }
  std::string Value() { return VariantToText(Context().GetVariableValue("V")); }

  TVekReadTextFileAction action{Context()};
};

TEST_F(ReadTextFile, PutsTheContentsIntoAVariable) {
  const std::string bytes("100% %X% %%\r\n\xFF$(X)\0$$(\n", 23);
  folder.Write("text.txt", bytes);
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Value(), bytes);
  EXPECT_THAT(Lines(), ElementsAre("Reading file...", "Done."));

  action.EscapeVariables = true;
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Value(), std::string("100%% %%X%% %%%%\r\n\xFF$$(X)\0$$$(\n", 30));
  EXPECT_EQ(Context().ExpandExpression(Value()), bytes);
  EXPECT_THAT(Lines(), ElementsAre("Reading file...", "Escaping variables...", "Done."));

  folder.Write("text.txt", "");
  EXPECT_TRUE(Run(action));
  EXPECT_EQ(Value(), "");
}

TEST_F(ReadTextFile, HandsEachLineToTheScript) {
  action.PutContentsInVar = false;
  folder.Write("text.txt", "one\r\n\rfail\nlast");
  SetScript("Vek.Log('[' + LineText + ']'); LineText = 'unused'; if (Action.FileName == '') throw 1;");
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("Reading file...", "[one]", "[]", "[fail]", "[last]", "Done."));
  EXPECT_FALSE(Context().IsVariableDefined("V"));

  SetScript("if (LineText == 'fail') throw 'nobody minds';");
  EXPECT_TRUE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("Reading file...", "Done."));
  EXPECT_EQ(Errors().size(), 1u);
}

TEST_F(ReadTextFile, WhatCannotBeReadIsReported) {
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("ERROR - File does not exists: " + folder.Path("text.txt")));
  folder.Write("text.txt", "held");
  const ExclusiveOpen held(folder.Path("text.txt"));
  EXPECT_FALSE(Run(action));
  EXPECT_THAT(Lines(), ElementsAre("Reading file...", "File read failed: " + folder.Path("text.txt") + ": " +
                                                          SystemText(Win32Error::SharingViolation)));
  EXPECT_FALSE(Context().IsVariableDefined("V"));
}

}  // namespace
