#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "support/ActionFixture.h"
#include "support/OsFixture.h"
#include "textini/VekLogVariableValues.h"
#include "textini/VekVariablesSaveLoadAction.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct SaveVariables : ActionFixture, testing::Test {
  SaveVariables() {
    action->INIFile = folder.Path("%FILE%");
    action->SectionName = "%SECTION%";
    Context().SetVariable("FILE", std::string("f.ini"));
    Context().SetVariable("SECTION", std::string("S"));
    Context().SetVariable("TEXT", std::string("a=b"));
    Context().SetVariable("COUNT", int64_t{-3});
    Context().SetVariable("FLAG", true);
  }

  std::unique_ptr<TVekVariablesSaveAction> action = Make<TVekVariablesSaveAction>();
};

TEST_F(SaveVariables, WritesTheTextsOfTheirValues) {
  constexpr const char* kBefore = "[S]\nold=1\ncount=2\n[T]\nx=1\n";
  action->Variables = {"Text", "COUNT", "FLAG"};
  folder.Write("f.ini", kBefore);
  EXPECT_TRUE(ActionFixture::Run(*action));
  EXPECT_EQ(folder.Read("f.ini"), "[T]\nx=1\n[S]\nText=a=b\nCOUNT=-3\nFLAG=True\n");
  EXPECT_THAT(Lines(), ElementsAre("Variables saved to " + folder.Path("f.ini")));

  action->EraseSection = false;
  folder.Write("f.ini", kBefore);
  EXPECT_TRUE(ActionFixture::Run(*action));
  EXPECT_EQ(folder.Read("f.ini"), "[S]\nold=1\ncount=-3\nText=a=b\nFLAG=True\n[T]\nx=1\n");
}

TEST_F(SaveVariables, AFailureLeavesWhatWasSaved) {
  folder.Write("f.ini", "[S]\nTEXT=old\n");
  action->Variables = {"TEXT", "NOWHERE"};
  EXPECT_FALSE(ActionFixture::Run(*action));
  ASSERT_EQ(Lines().size(), 1u);
  EXPECT_THAT(Lines()[0], testing::MatchesRegex("Error expanding variable: .*NOWHERE.*"));
  EXPECT_EQ(folder.Read("f.ini"), "[S]\nTEXT=old\n");

  action->Variables = {"TEXT"};
  action->INIFile = folder.Path("none/f.ini");
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_THAT(Lines(), ElementsAre("Error Opening Ini File : " + action->INIFile + ": " +
                                   SystemText(Win32Error::PathNotFound)));
}

struct LoadVariables : ActionFixture, testing::Test {
  LoadVariables() { action->INIFile = path; }

  /// The variable's type and text.
  std::string Stored(std::string_view name) {
    const Variant value = Context().GetVariableValue(name);
    return std::string(VariantTypeName(value)) + ' ' + VariantToText(value);
  }

  const std::string path = folder.Path("f.ini");
  std::unique_ptr<TVekVariablesLoadAction> action = Make<TVekVariablesLoadAction>();
};

TEST_F(LoadVariables, ConvertToTheTypeThatIsGiven) {
  const struct {
    Variant before;
    std::string type, entry, wanted;
  } cases[] = {
      {std::string("x"), "STRING", "\" 1 \"", "String  1 "},
      {std::string("x"), "string", "", "String "},
      {int64_t{7}, "String", "8", "String 8"},
      {int64_t{7}, "integer", "0x10", "Integer 16"},
      {int64_t{7}, "INTEGER", "-2147483648", "Integer -2147483648"},
      {int64_t{7}, "INTEGER", "2147483648", "Integer 7"},
      {int64_t{7}, "INTEGER", "", "Integer 7"},
      {std::string("x"), "INTEGER", "maybe", "Integer 0"},
      {true, "Boolean", "FALSE", "Boolean False"},
      {true, "BOOLEAN", "maybe", "Boolean True"},
      {std::string("1"), "BOOLEAN", "maybe", "Boolean True"},
      {std::string("x"), "BOOLEAN", "maybe", "Boolean False"},
      {false, "BOOLEAN", "-1", "Boolean True"},
  };
  action->Variables = {"V"};
  for (const auto& wanted : cases) {
    folder.Write("f.ini", "[VekVariables]\nv=" + wanted.entry + "\nV=second\n");
    Context().SetVariable("V", wanted.before);
    action->VariableTypes = {wanted.type};
    EXPECT_TRUE(ActionFixture::Run(*action));
    EXPECT_EQ(Stored("V"), wanted.wanted) << wanted.type << ' ' << wanted.entry;
    EXPECT_THAT(Lines(), ElementsAre("Variables loaded from " + path));
  }
}

TEST_F(LoadVariables, WhatIsMissingFailsUnlessItMayBe) {
  const std::string loaded = "Variables loaded from " + path;
  const struct {
    bool failUndefined, failMissing, create;
    StringList variables, types, wanted;
    std::string a;
  } cases[] = {
      {true, true, false, {"A", "UNDEFINED"}, {"STRING"}, {"Variable not defined: UNDEFINED"}, "new"},
      {false,
       true,
       false,
       {"UNDEFINED", "A"},
       {"", "STRING"},
       {"Variable not defined: UNDEFINED", loaded},
       "new"},
      {true, true, true, {"A", "B"}, {"STRING"}, {"Variable not found in INI: B"}, "new"},
      {true, false, false, {"B", "A"}, {"", "STRING"}, {"Variable not found in INI: B", loaded}, "new"},
      {true, true, false, {"A", "A"}, {"STRING"}, {"Error setting variable A"}, "new"},
      {true, true, false, {"A"}, {"Text"}, {"Invalid value for variable type: Text"}, "old"},
  };
  for (const auto& wanted : cases) {
    folder.Write("f.ini", "[VekVariables]\nA=new\n");
    for (const char* name : {"A", "B"}) Context().SetVariable(name, std::string("old"));
    action->FailIfVariableNotDefined = wanted.failUndefined;
    action->FailIfVariableNotInIniFile = wanted.failMissing;
    action->CreateVarInINIifNotExists = wanted.create;
    action->Variables = wanted.variables;
    action->VariableTypes = wanted.types;
    EXPECT_EQ(ActionFixture::Run(*action), wanted.wanted.back() == loaded) << wanted.wanted.front();
    EXPECT_EQ(Lines(), wanted.wanted);
    EXPECT_EQ(Stored("A"), "String " + wanted.a);
    EXPECT_EQ(Stored("B"), "String old");
  }
}

TEST_F(LoadVariables, MissingEntriesAreCreatedWithTheCurrentValues) {
  for (const char* name : {"A", "B", "C"}) Context().SetVariable(name, std::string("of ") + name);
  action->Variables = {"A", "B", "b", "C"};
  action->VariableTypes = {"STRING", "STRING", "BOOLEAN", "STRING"};
  action->FailIfVariableNotInIniFile = false;
  action->CreateVarInINIifNotExists = true;
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_THAT(Lines(), ElementsAre("File " + path + " does not exist."));
  EXPECT_FALSE(folder.Exists("f.ini"));

  action->IgnoreFileNotFound = true;
  EXPECT_TRUE(ActionFixture::Run(*action));
  EXPECT_EQ(folder.Read("f.ini"), "[VekVariables]\r\nA=of A\r\nB=of B\r\nC=of C\r\n");
  const std::string created = "Variable not found in INI, created: ";
  EXPECT_THAT(Lines(), ElementsAre("File " + path + " does not exist.", created + "A", created + "B",
                                   created + "C", "Variables loaded from " + path));
  EXPECT_EQ(Stored("B"), "Boolean False");  // its second turn finds the entry

  folder.Write("f.ini", "[VekVariables]\nB=1\n");
  SetMode(path, 0444);
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_THAT(Lines(), ElementsAre("Error setting variable A"));
  EXPECT_THAT(Errors(), ElementsAre(SystemText(Win32Error::AccessDenied)));
}

TEST_F(LoadVariables, AFileThatCannotBeReadIsReported) {
  folder.Write("f.ini", "[VekVariables]\n");
  const ExclusiveOpen other(path);
  EXPECT_FALSE(ActionFixture::Run(*action));
  EXPECT_THAT(Lines(), ElementsAre("Error Opening Ini File : " + path + ": " +
                                   SystemText(Win32Error::SharingViolation)));
}

TEST(LogVariables, LogsWhatIsDefined) {
  ActionFixture fixture;
  const auto action = fixture.Make<TVekLogVariablesAction>();
  fixture.Context().SetVariable("A", int64_t{1});
  fixture.Context().SetVariable("NAME", std::string("A"));
  action->SetVariableStorageString("A\r\n\r\n%NAME%\nnone\nNAME\n");
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(),
              ElementsAre("Current variable values : ", "A = 1", "A = 1", "Variable none not defined."));
  action->FailIfNotDefined = false;
  EXPECT_TRUE(fixture.Run(*action));
  EXPECT_EQ(fixture.Lines().back(), "NAME = A");
  EXPECT_EQ(action->VariableStorageString(), "A\r\n\r\n%NAME%\r\nnone\r\nNAME\r\n");
  action->VariablesToLog = {"%NOWHERE%"};
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Lines(), ElementsAre("Current variable values : "));
}

}  // namespace
