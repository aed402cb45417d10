#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "pages/Vekeditors.h"
#include "pages/Vekreadiniframe.h"
#include "pages/Vekwriteiniframe.h"
#include "platform/Entries.h"
#include "support/ActionFixture.h"
#include "support/NullHost.h"
#include "support/OsFixture.h"
#include "support/ScriptedServices.h"
#include "textini/Vekconversions.h"
#include "textini/Vekinifile.h"

using testing::ElementsAre;
using testing::IsEmpty;
using enum TIniValueType;

namespace {

constexpr std::string_view kUnknown = "%NO_SUCH_VARIABLE_ANYWHERE%";

template <class Action>
struct IniAction : ActionFixture, testing::Test {
  IniAction() {
    action->IniFile = WideString(path);
    action->Section = "S";
    action->ValueName = "a";
  }

  bool Run() { return ActionFixture::Run(*action); }

  /// Runs with one property that cannot be expanded; answers what was logged of it.
  StringList RunUnexpandable(WideString Action::*property) {
    const WideString before = std::exchange((*action).*property, WideString(std::string(kUnknown)));
    EXPECT_FALSE(Run());
    (*action).*property = before;
    EXPECT_EQ(Lines().size(), 2u);
    EXPECT_NE(Lines().back().find("NO_SUCH_VARIABLE_ANYWHERE"), std::string::npos) << "the reason";
    return {Lines().begin(), Lines().end() - 1};
  }

  const std::string path = folder.Path("f.ini");
  std::unique_ptr<Action> action = Make<Action>();
};

struct ReadIni : IniAction<TReadIniFileAction> {
  ReadIni() { action->VariableName = "V"; }

  std::string Stored() {
    const Variant value = Context().GetVariableValue("V");
    return std::string(VariantTypeName(value)) + ' ' + VariantToText(value);
  }

  StringList Reading(const std::string& defaultText, const std::string& value) {
    return {"Reading from IniFile: " + path + " Section : S ValueName: a Default Value : " + defaultText,
            "New Value : " + value};
  }
};

struct WriteIni : IniAction<TWriteIniFileAction> {
  bool Write(TIniValueType type, const std::string& value) {
    action->ValueType = type;
    action->NewValue = WideString(value);
    return Run();
  }

  StringList Writing(const std::string& value) {
    return {"Writing to IniFile: " + path + "Section : S ValueName: a Value: " + value};
  }
};

TEST_F(ReadIni, StoresTheValueAsItsType) {
  const struct {
    TIniValueType type;
    const char *text, *defaultText, *stored;
  } cases[] = {
      {vtString, "a= \"x y\" ", "d", "String x y"},
      {vtString, "a=", "d", "String "},
      {vtString, "b=1", " d ", "String  d "},
      {vtBool, "a=1", "false", "Boolean True"},
      {vtBool, "a=-2", "false", "Boolean True"},
      {vtBool, "a=0", "true", "Boolean False"},
      {vtBool, "a=0x0", "true", "Boolean False"},
      {vtBool, "a=yes", " TRUE ", "Boolean True"},
      {vtBool, "b=1", "False", "Boolean False"},
      {vtInteger, "a=-12", "0", "Integer -12"},
      {vtInteger, "a=0x1F", "0", "Integer 31"},
      {vtInteger, "a=12abc", "7", "Integer 7"},
      {vtInteger, "a=4294967296", "7", "Integer 7"},
      {vtInteger, "b=1", "0x10", "Integer 16"},
      {vtInteger, "a=-99098700", "1", "Integer -99098700"},
  };
  for (const auto& wanted : cases) {
    folder.Write("f.ini", std::string("[S]\n") + wanted.text + "\n");
    action->ValueType = wanted.type;
    action->DefaultValue = wanted.defaultText;
    EXPECT_TRUE(Run()) << wanted.text;
    EXPECT_EQ(Stored(), wanted.stored) << wanted.text;
    const std::string value(wanted.stored + std::string_view(wanted.stored).find(' ') + 1);
    EXPECT_EQ(Lines(), Reading(wanted.defaultText, value));
  }
}

TEST_F(ReadIni, MissingFilesAndFoldersGiveTheDefault) {
  action->DefaultValue = "d";
  EXPECT_TRUE(Run());
  EXPECT_EQ(Stored(), "String d");
  action->IniFile = WideString(folder.Path("none/f.ini"));
  EXPECT_TRUE(Run());
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(ReadIni, ExpandsEverythingButTheVariablesName) {
  folder.Write("f.ini", "[My S]\nk7=found\n");
  Context().SetVariable("DIR", folder.Path());
  Context().SetVariable("N", int64_t{7});
  action->IniFile = "%DIR%\\f.ini";
  action->Section = "  My $('S')  ";
  action->ValueName = "k%N%";
  action->DefaultValue = "d%N%";
  EXPECT_TRUE(Run());
  EXPECT_EQ(Stored(), "String found");
  EXPECT_THAT(Lines(), ElementsAre("Reading from IniFile: " + folder.Path() +
                                       "\\f.ini Section : My S ValueName: k7 Default Value : d7",
                                   "New Value : found"));
  action->VariableName = "%N%";
  EXPECT_TRUE(Run());
  EXPECT_TRUE(Context().IsVariableDefined("%N%"));
}

TEST_F(ReadIni, RefusesDefaultsThatAreNotOfTheType) {
  const std::string notBoolean = "Default Value is not True or False and the Value Type is Boolean";
  for (const char* text : {"yes", "1", ""}) {
    action->ValueType = vtBool;
    action->DefaultValue = text;
    EXPECT_FALSE(Run());
    EXPECT_THAT(Lines(), ElementsAre(notBoolean));
  }
  for (const std::string text : {"x", "", "1.5", "2147483648", "-99098700"}) {
    action->ValueType = vtInteger;
    action->DefaultValue = WideString(text);
    EXPECT_FALSE(Run());
    EXPECT_THAT(Lines(), ElementsAre("Default Value : " + text +
                                     " : is not an integer and the Value Type is Integer"));
    EXPECT_EQ(Events().events.back().rfind("message ", 0), 0u) << "a line of its own, not a status message";
  }
  EXPECT_FALSE(Context().IsVariableDefined("V"));
}

TEST_F(ReadIni, ReportsWhatCannotBeExpanded) {
  const std::string unknown(kUnknown);
  EXPECT_THAT(RunUnexpandable(&TReadIniFileAction::IniFile),
              ElementsAre("Unable to Read from Ini File : " + unknown));
  EXPECT_THAT(RunUnexpandable(&TReadIniFileAction::ValueName),
              ElementsAre("Unable to Read Value from Ini File : " + unknown));
  EXPECT_THAT(RunUnexpandable(&TReadIniFileAction::Section),
              ElementsAre("Unable to Read from Section : " + unknown));
  EXPECT_THAT(RunUnexpandable(&TReadIniFileAction::DefaultValue),
              ElementsAre("Unable to use default Value  : " + unknown));
  action->Section = "  ";
  EXPECT_FALSE(Run());
  EXPECT_THAT(Lines(), ElementsAre("Unable to Read from Section :   ", "Section Name not specified"));
  action->IniFile = "f.ini";
  EXPECT_FALSE(Run());
  EXPECT_THAT(Lines(), ElementsAre("No path to the Ini File specified!"));
}

TEST_F(ReadIni, ReportsAFileThatCannotBeRead) {
  folder.Write("f.ini", "[S]\na=1\n");
  const ExclusiveOpen other(path);
  EXPECT_FALSE(Run());
  EXPECT_THAT(Lines(), ElementsAre("Unable to Read from Ini File : " + path,
                                   SystemText(Win32Error::SharingViolation)));
}

TEST_F(WriteIni, WritesTheValueAsItsType) {
  const struct {
    TIniValueType type;
    const char *value, *shown, *written;
  } cases[] = {
      {vtString, " x ", " x ", "a= x "},
      {vtString, "", "", "a="},
      {vtBool, "TRUE", "True", "a=1"},
      {vtBool, "false", "False", "a=0"},
      {vtBool, "7", "True", "a=1"},
      {vtBool, "0.0", "False", "a=0"},
      {vtInteger, "-5", "-5", "a=-5"},
      {vtInteger, "0x10", "16", "a=16"},
      {vtInteger, "0xFFFFFFFF", "-1", "a=-1"},
  };
  for (const auto& wanted : cases) {
    folder.Write("f.ini", "; kept\n[S]\na=old\n");
    EXPECT_TRUE(Write(wanted.type, wanted.value)) << wanted.value;
    EXPECT_EQ(Lines(), Writing(wanted.shown));
    EXPECT_EQ(folder.Read("f.ini"), "; kept\n[S]\n" + std::string(wanted.written) + "\n");
  }
}

TEST_F(WriteIni, CreatesAFileOnlyWhenAllowed) {
  EXPECT_FALSE(Write(vtString, "1"));
  EXPECT_THAT(Lines(), ElementsAre("Unable to Write to Ini File : " + path, "File does not Exist!"));
  EXPECT_THAT(folder.Names(), IsEmpty());
  action->AllowCreate = true;
  EXPECT_TRUE(Write(vtString, "1"));
  EXPECT_EQ(folder.Read("f.ini"), "[S]\r\na=1\r\n");
}

TEST_F(WriteIni, AFailedWriteIntoAnExistingFileIsNoFailure) {
  const StringList notBoolean = {"Unable to Write to Ini File : " + path,
                                 "'maybe' is not a valid boolean value"};
  action->AllowCreate = true;
  for (const bool exists : {false, true}) {
    if (exists) folder.Write("f.ini", "[S]\na=1\n");
    for (const char* value : {"12x", "", "-990234"}) {
      EXPECT_EQ(Write(vtInteger, value), exists) << value;
      EXPECT_THAT(Lines(), IsEmpty());
    }
    EXPECT_EQ(Write(vtBool, "maybe"), exists);
    EXPECT_EQ(Lines(), notBoolean);
    EXPECT_EQ(folder.Exists("f.ini"), exists);
  }
  EXPECT_EQ(folder.Read("f.ini"), "[S]\na=1\n");
}

TEST_F(WriteIni, ReportsTheSystemsRefusal) {
  folder.Write("f.ini", "[S]\na=1\n");
  {
    const ExclusiveOpen other(path);
    EXPECT_TRUE(Write(vtString, "2"));
    EXPECT_THAT(Lines(), ElementsAre("Unable to Write to Ini File : " + path,
                                     SystemText(Win32Error::SharingViolation)));
  }
  const std::string nowhere = folder.Path("none/f.ini");
  action->IniFile = WideString(nowhere);
  action->AllowCreate = true;
  EXPECT_FALSE(Write(vtString, "2"));
  EXPECT_THAT(Lines(),
              ElementsAre("Unable to Write to Ini File : " + nowhere, SystemText(Win32Error::PathNotFound)));
}

TEST_F(WriteIni, LeavesReadOnlyFilesAlone) {
  folder.Write("f.ini", "[S]\na=1\n");
  SetMode(path, 0444);
  EXPECT_FALSE(Write(vtString, "2"));
  EXPECT_THAT(Events().events, ElementsAre("message  File : " + path + " is marked as Read Only!"));
  EXPECT_EQ(folder.Read("f.ini"), "[S]\na=1\n");
}

TEST_F(WriteIni, ReportsWhatCannotBeExpanded) {
  const std::string unknown(kUnknown);
  EXPECT_THAT(RunUnexpandable(&TWriteIniFileAction::IniFile),
              ElementsAre("Unable to Write to Ini File : " + unknown));
  EXPECT_THAT(RunUnexpandable(&TWriteIniFileAction::NewValue),
              ElementsAre("Unable to Write Value to Ini File : " + unknown));
  EXPECT_THAT(RunUnexpandable(&TWriteIniFileAction::ValueName),
              ElementsAre("Unable to Write Value to Ini File : " + unknown));
  EXPECT_THAT(RunUnexpandable(&TWriteIniFileAction::Section),
              ElementsAre("Unable to Write to Section : " + unknown));
  action->Section = " ";
  EXPECT_FALSE(Run());
  EXPECT_THAT(Lines(), ElementsAre("Unable to Write to Section :  ", "Section Name not specified"));
  action->IniFile = "f.ini";
  EXPECT_FALSE(Run());
  EXPECT_THAT(Lines(), ElementsAre("No path to the Ini File specified!"));
}

TEST(Conversions, TextToIntegerAndBoolean) {
  const struct {
    const char* text;
    std::optional<int32_t> integer;
    std::optional<bool> boolean;
  } cases[] = {
      {"0", 0, false},
      {" 12 ", 12, true},
      {"+3", 3, true},
      {"-2147483648", INT32_MIN, true},
      {"2147483648", {}, true},
      {"$ff", 255, {}},
      {"0X7fffffff", INT32_MAX, {}},
      {"-0x1", -1, {}},
      {"0x100000000", {}, {}},
      {"0x", {}, {}},
      {"--1", {}, {}},
      {"1 2", {}, {}},
      {"", {}, {}},
      {"-0.0", {}, false},
      {"1e2", {}, true},
      {"inf", {}, {}},
      {"True", {}, true},
      {"FALSE", {}, false},
      {"yes", {}, {}},
  };
  for (const auto& wanted : cases) {
    EXPECT_EQ(StringToInteger(wanted.text), wanted.integer) << wanted.text;
    EXPECT_EQ(StringToBoolean(wanted.text), wanted.boolean) << wanted.text;
  }
}

TEST(IniPages, OfferTheProjectsVariables) {
  ScriptedServices services;
  services.variables = {"OUT", "COUNT"};
  NullHost host;
  TReadIniFileAction action(host);
  action.VariableName = "OTHER";
  TReadIniFrame page;
  page.InitPage(action);
  page.ReadActionData(action);
  auto& variable = dynamic_cast<TComboBox&>(*page.FindControl("cmbVariableName"));
  EXPECT_THAT(variable.Items(), ElementsAre("OUT", "COUNT"));
  EXPECT_EQ(variable.Text(), "OTHER");
  variable.Choose(1);
  dynamic_cast<TComboBox&>(*page.FindControl("cmbValueType")).Choose(2);
  page.WriteActionData(action);
  EXPECT_EQ(action.VariableName, "COUNT");
  EXPECT_EQ(action.ValueType, vtInteger);

  const auto editor = kIniVariableEditor.Create(action, *action.FindProperty("VariableName"));
  EXPECT_EQ(editor->GetAttribute(), TPropertyAttribute::paValueList);
  EXPECT_THAT(editor->GetValues(), ElementsAre("OUT", "COUNT"));
  services.RemoveDesigner();
  EXPECT_THAT(editor->GetValues(), IsEmpty());
}

}  // namespace
