#include <array>

#include "gmock/gmock.h"

#include "base/WindowsPath.h"
#include "pages/Vekreadregistryframe.h"
#include "pages/Vekregeditors.h"
#include "platform/Platform.h"
#include "support/Exchanged.h"
#include "support/NullHost.h"
#include "support/OsFixture.h"
#include "support/ScriptedServices.h"
#include "textini/Vekconversions.h"
#include "textini/Vekregaction.h"

using testing::ElementsAre;
using testing::IsEmpty;
using enum TRegValueType;

namespace {

/// The three actions on a key of the test's own.
struct RegistryActions : ActionFixture, testing::Test {
  explicit RegistryActions(const Wrap& wrap = {}) : ActionFixture(wrap) {
    for (TCustomRegAction* action : all) {
      action->RegRoot = RegistryRoot::CurrentUser;
      action->RegKey = key;
      action->RegValueName = "v";
    }
    read->VekVariable = "V";
    set->AllowCreateKey = true;
    Context().SetVariable("V", std::string("before"));
  }
  ~RegistryActions() override { RemoveRegistryKey(key); }

  using ActionFixture::Run;  // testing::Test has one too

  bool Set(TRegValueType type, const std::string& value) {
    set->RegValType = type;
    set->RegValue = value;
    return Run(*set);
  }
  bool Read(TRegValueType type) {
    read->RegValType = type;
    return Run(*read);
  }
  std::string Stored() {
    const Variant value = Context().GetVariableValue("V");
    return std::string(VariantTypeName(value)) + ' ' + VariantToText(value);
  }

  const std::string key = "Software\\VekTest-" + std::string(NamePart(folder.Path()));
  std::unique_ptr<TReadRegValueAction> read = Make<TReadRegValueAction>();
  std::unique_ptr<TSetRegValueAction> set = Make<TSetRegValueAction>();
  std::unique_ptr<TDeleteRegValueAction> remove = Make<TDeleteRegValueAction>();
  const std::array<TCustomRegAction*, 3> all = {read.get(), set.get(), remove.get()};
};

TEST_F(RegistryActions, WhatIsSetIsReadAsItsType) {
  const struct {
    TRegValueType type;
    const char* text;
    TRegValueType readAs;
    const char* stored;
  } cases[] = {
      {rtString, " a \"b\" ", rtString, "String  a \"b\" "},
      {rtString, "", rtString, "String "},
      {rtInteger, " -5 ", rtInteger, "Integer -5"},
      {rtInteger, "0x1F", rtDWord, "Integer 31"},
      {rtInteger, "-1", rtDWord, "Integer 4294967295"},
      {rtDWord, "4294967295", rtInteger, "Integer -1"},
      {rtDWord, "4294967295", rtDWord, "Integer 4294967295"},
      {rtDWord, "-2", rtDWord, "Integer 4294967294"},
      {rtDWord, "8589934597", rtDWord, "Integer 5"},
      {rtBoolean, "true", rtDWord, "Integer 1"},
      {rtBoolean, "0", rtBoolean, "Boolean False"},
      {rtInteger, "-7", rtBoolean, "Boolean True"},
  };
  for (const auto& wanted : cases) {
    EXPECT_TRUE(Set(wanted.type, wanted.text)) << wanted.text;
    EXPECT_THAT(Lines(), ElementsAre(std::string("Set Value v to : ") + wanted.text));
    EXPECT_TRUE(Read(wanted.readAs)) << wanted.text;
    EXPECT_EQ(Stored(), wanted.stored) << wanted.text;
    const std::string value(wanted.stored + std::string_view(wanted.stored).find(' ') + 1);
    EXPECT_THAT(Lines(), ElementsAre("Read Value : " + value));
  }
}

TEST_F(RegistryActions, TextThatIsNoValueOfTheTypeIsNotSet) {
  EXPECT_TRUE(Set(rtString, "old"));
  const struct {
    TRegValueType type;
    const char *text, *message;
  } cases[] = {
      {rtInteger, "4294967295", "'4294967295' is not a valid integer value"},
      {rtInteger, "", "'' is not a valid integer value"},
      {rtDWord, "1.5", "'1.5' is not a valid integer value"},
      {rtDWord, "9223372036854775808", "'9223372036854775808' is not a valid integer value"},
      {rtBoolean, "maybe", "'maybe' is not a valid boolean value"},
      {rtString, "%NO_SUCH_VARIABLE%", "unknown variable \"NO_SUCH_VARIABLE\" (%% stands for one %)"},
  };
  for (const auto& wanted : cases) {
    EXPECT_FALSE(Set(wanted.type, wanted.text)) << wanted.text;
    EXPECT_THAT(Lines(), ElementsAre(std::string("Error expanding Value : ") + wanted.message));
  }
  EXPECT_TRUE(Read(rtString));
  EXPECT_EQ(Stored(), "String old");
}

TEST_F(RegistryActions, ReadingAnotherTypeOrNothingTellsOfTheValue) {
  EXPECT_TRUE(Set(rtString, "text"));
  for (const TRegValueType type : {rtInteger, rtDWord, rtBoolean}) {
    EXPECT_FALSE(Read(type));
    EXPECT_THAT(Lines(), ElementsAre("Invalid data type for 'v'"));
  }
  EXPECT_TRUE(Set(rtDWord, "1"));
  EXPECT_FALSE(Read(rtString));
  EXPECT_THAT(Lines(), ElementsAre("Invalid data type for 'v'"));
  read->RegValueName = "none";
  EXPECT_FALSE(Read(rtString));
  EXPECT_THAT(Lines(), ElementsAre("Failed to get data for 'none'"));
  EXPECT_EQ(Stored(), "String before");
}

TEST_F(RegistryActions, AnUndefinedVariableIsMadeAndFailsTheRead) {
  EXPECT_TRUE(Set(rtString, "text"));
  read->VekVariable = "NEW";
  EXPECT_FALSE(Run(*read));
  EXPECT_THAT(Lines(), ElementsAre("Variable : NEW is not defined"));
  EXPECT_EQ(Context().GetVariableValue("NEW"), Variant(std::string()));
  EXPECT_TRUE(Run(*read));
}

TEST_F(RegistryActions, OnlySetMakesTheKeyAndOnlyWhenAllowed) {
  set->AllowCreateKey = false;
  set->RegKey = read->RegKey = remove->RegKey = "%KEY%";
  Context().SetVariable("KEY", key);
  for (TCustomRegAction* action : all) {
    EXPECT_FALSE(Run(*action));
    EXPECT_THAT(Lines(), ElementsAre("Key does not exist : %KEY%"));
  }
  set->AllowCreateKey = true;
  EXPECT_TRUE(Run(*set));
  EXPECT_TRUE(Run(*read));
  set->RegRoot = 0x80000004;
  EXPECT_FALSE(Run(*set));
  EXPECT_THAT(Lines(), ElementsAre("Key does not exist : %KEY%"));
}

TEST_F(RegistryActions, KeyAndNameAreExpandedFirst) {
  const std::string unknown = "%NO_SUCH_VARIABLE%";
  read->RegKey = unknown;
  remove->RegValueName = unknown;
  for (TCustomRegAction* action : {all[0], all[2]}) {
    EXPECT_FALSE(Run(*action));
    EXPECT_THAT(
        Lines(),
        ElementsAre(
            "Error Expanding String property : unknown variable \"NO_SUCH_VARIABLE\" (%% stands for one %)"));
  }
  set->RegValueName = "";
  EXPECT_TRUE(Set(rtString, "default"));
  EXPECT_THAT(Lines(), ElementsAre("Set Value  to : default"));
}

TEST_F(RegistryActions, DeletesTheValueAndNotTheKey) {
  EXPECT_TRUE(Set(rtString, "text"));
  EXPECT_TRUE(Run(*remove));
  EXPECT_THAT(Lines(), ElementsAre("Deleted Value v"));
  EXPECT_FALSE(Run(*remove));
  EXPECT_THAT(Lines(), ElementsAre("Error Deleting Value v - Value does not exist"));
}

TEST_F(RegistryActions, TheSystemsWordIsPassedOn) {
  EXPECT_TRUE(Set(rtString, "text"));
  const std::string denied = SystemText(Win32Error::AccessDenied);
  fault = [](const PlatformCall& call) -> std::optional<SysResult> {
    if (call.operation != "key.Write" && call.operation != "key.Delete") return {};
    return SysResult::Failure(Win32Error::AccessDenied);
  };
  EXPECT_FALSE(Run(*remove));
  EXPECT_THAT(Lines(), ElementsAre("Error Deleting Value v : " + denied));
  EXPECT_FALSE(Set(rtString, "text"));
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_THAT(Errors(), ElementsAre("Failed to set data for 'v': " + denied));
}

struct DamagedRegistry final : Registry {
  SysResult Open(uint32_t, std::string_view, uint32_t, RegistryOpen, std::unique_ptr<RegistryKey>&) override {
    return SysResult::Failure(Win32Error::BadRegistry);
  }
  std::string Damage() override { return "line 7"; }
};

struct DamagedActions : RegistryActions {
  DamagedActions() : RegistryActions(Exchanged(&Platform::registry, registry)) {}
  DamagedRegistry registry;
};

TEST_F(DamagedActions, TheDamageIsReported) {
  EXPECT_FALSE(Run(*read));
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_THAT(Errors(), ElementsAre("line 7"));
}

TEST(RegRootEditor, ShowsTheRootsByName) {
  NullHost host;
  TDeleteRegValueAction action(host);
  const auto editor = kRegRootEditor.Create(action, *action.FindProperty("RegRoot"));
  EXPECT_THAT(editor->GetValues(), ElementsAre("HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE",
                                               "HKEY_USERS", "HKEY_CURRENT_CONFIG"));
  EXPECT_EQ(editor->GetValue(), "HKEY_LOCAL_MACHINE");
  editor->SetValue("HKEY_CURRENT_CONFIG");
  EXPECT_EQ(action.RegRoot, RegistryRoot::CurrentConfig);
  editor->SetValue("HKEY_NONE");
  EXPECT_EQ(action.RegRoot, RegistryRoot::CurrentConfig);
  action.RegRoot = 0x80000004;
  EXPECT_EQ(editor->GetValue(), "");
}

struct RegistryPage : testing::Test {
  template <class Action>
  StringList Shown(Action& action) {
    page.InitPage(action);
    page.ReadActionData(action);
    StringList names;
    for (const auto& control : page.Controls()) {
      if (control->Visible() && !control->Name().empty()) names.push_back(control->Name());
    }
    return names;
  }

  template <class Control>
  Control& Find(std::string_view name) {
    return dynamic_cast<Control&>(*page.FindControl(name));
  }

  NullHost host;
  TReadRegistryFrame page;
};

TEST_F(RegistryPage, ShowsWhatEachActionNeeds) {
  ScriptedServices services;
  services.variables = {"A", "B"};
  TReadRegValueAction read(host);
  EXPECT_THAT(Shown(read),
              ElementsAre("cboRegRoot", "txtRegKey", "txtRegValueName", "cboRegValType", "cboVekVariable"));
  EXPECT_EQ(Find<TComboBox>("cboVekVariable").Items(), services.variables);
  Find<TComboBox>("cboVekVariable").Choose(1);
  page.WriteActionData(read);
  EXPECT_EQ(read.VekVariable, "B");

  TSetRegValueAction set(host);
  EXPECT_THAT(Shown(set), ElementsAre("cboRegRoot", "txtRegKey", "chkAllowCreateKey", "txtRegValueName",
                                      "cboRegValType", "txtRegValue"));
  EXPECT_EQ(page.FindControl("txtRegValue")->Caption(), "New Value");
  Find<TComboBox>("cboRegRoot").Choose(1);
  Find<TCheckBox>("chkAllowCreateKey").Click();
  Find<TEdit>("txtRegValue").Enter("x");
  page.WriteActionData(set);
  EXPECT_EQ(set.RegRoot, RegistryRoot::CurrentUser);
  EXPECT_TRUE(set.AllowCreateKey);
  EXPECT_EQ(set.RegValue, "x");

  // A root that has no name stays.
  TDeleteRegValueAction remove(host);
  remove.RegRoot = 7;
  EXPECT_THAT(Shown(remove), ElementsAre("cboRegRoot", "txtRegKey", "txtRegValueName"));
  page.WriteActionData(remove);
  EXPECT_EQ(remove.RegRoot, 7u);
}

}  // namespace
