#include "gmock/gmock.h"

#include "forms/Vekpluginapi.h"
#include "support/NullHost.h"
#include "support/SampleAction.h"
#include "support/ScriptedServices.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// A control of every kind, over properties of every type.
class TSamplePage final : public TActionFrame<TSampleAction> {
 public:
  static constexpr std::string_view kClassName = "TSamplePage";
  TSamplePage() : TActionFrame("Sample") {
    Heading("Texts");
    ButtonEdit("txtText", "Text").Hint("A file").BrowsesForFile("Choose", "Texts|*.txt", ".txt");
    ComboBox("cbWide", "Wide").Items({"one", "two"});
    Edit("txtNumber", "Number");
    Edit("txtCount", "Count");
    Edit("txtWhen", "When");
    Memo("memLines", "Lines");
    Heading("Choices");
    CheckBox("chkFlag", "Flag", "Flag");
    RadioButton("rbOn", "On", "Switch", true);
    RadioButton("rbOff", "Off", "Switch", false);
    ComboBox("cbMode", "Mode").Items({"First", "Second", "Third"});
    CheckBox("chkModesFirst", "First", "Modes", TSampleMode::smFirst);
    CheckBox("chkModesThird", "Third", "Modes", TSampleMode::smThird);
    CheckBox("chkIgnoreFailure", "Ignore failure", "IgnoreFailure");  // of every action
    Edit("txtOfThePage").Caption("Not bound");
  }

  template <class Control = TEdit>
  Control& Get(std::string_view name) {
    return dynamic_cast<Control&>(*FindControl(name));
  }
};

struct Page : testing::Test {
  void SetUp() override { page.ReadActionData(action); }

  NullHost host;
  TSampleAction action{host};
  TSamplePage page;
};

struct ReadCase {
  const char* control;
  const char* text;
};

TEST_F(Page, ShowsThePropertiesInItsControls) {
  action.Text = "a.txt";
  action.Wide = WideString("three");
  action.Number = -5;
  action.Count = 4294967295;
  action.When = *ParseIso8601("2007-03-05T10:00:00");
  action.Lines = {"a", "", "b", ""};
  action.Mode = TSampleMode::smThird;
  page.ReadActionData(action);
  constexpr ReadCase kCases[] = {
      {"txtText", "a.txt"},
      {"cbWide", "three"},
      {"txtNumber", "-5"},
      {"txtCount", "4294967295"},
      {"cbMode", "Third"},
      {"txtWhen", "2007-03-05T10:00:00"},
      {"memLines", "a\r\n\r\nb\r\n\r\n"},
  };
  for (const ReadCase& wanted : kCases) {
    EXPECT_EQ(page.Get<TCustomEdit>(wanted.control).Text(), wanted.text) << wanted.control;
  }
}

TEST_F(Page, ShowsTruthValuesSetsAndChoices) {
  action.Flag = WordBool::FromRaw(2);
  action.Switch = true;
  action.Modes = {TSampleMode::smThird};
  action.IgnoreFailure = true;
  page.ReadActionData(action);
  const auto checked = [&](const char* name) { return page.Get<TCheckBox>(name).Checked(); };
  EXPECT_TRUE(checked("chkFlag"));
  EXPECT_FALSE(checked("chkModesFirst"));
  EXPECT_TRUE(checked("chkModesThird"));
  EXPECT_TRUE(checked("chkIgnoreFailure"));
  EXPECT_TRUE(page.Get<TRadioButton>("rbOn").Checked());
  EXPECT_FALSE(page.Get<TRadioButton>("rbOff").Checked());
}

TEST_F(Page, WritesWhatTheUserDid) {
  action.Modes = {TSampleMode::smFirst, TSampleMode::smSecond};
  page.ReadActionData(action);
  page.Get<TButtonEdit>("txtText").Enter(" b ");
  page.Get<TComboBox>("cbWide").Choose(1);
  page.Get("txtNumber").Enter(" 12 ");
  page.Get("txtWhen").Enter("2020-01-02");
  page.Get<TMemo>("memLines").Enter("x\ny");
  page.Get<TComboBox>("cbMode").Choose(0);
  page.Get<TCheckBox>("chkModesFirst").Click();
  page.Get<TCheckBox>("chkModesThird").Click();
  page.Get<TRadioButton>("rbOn").Click();
  page.WriteActionData(action);
  EXPECT_EQ(action.Text, " b ");
  EXPECT_EQ(action.Wide, "two");
  EXPECT_EQ(action.Number, 12);
  EXPECT_EQ(ToIso8601(action.When), "2020-01-02T00:00:00");
  EXPECT_THAT(action.Lines, ElementsAre("x", "y"));
  EXPECT_EQ(action.Mode, TSampleMode::smFirst);
  EXPECT_EQ(action.Modes, (SetOf{TSampleMode::smSecond, TSampleMode::smThird}));
  EXPECT_TRUE(action.Switch);
}

TEST_F(Page, ReadingAndWritingChangesNothingButTheBitsOfTrue) {
  action.Lines = {"a", "", ""};
  action.Flag = WordBool::FromRaw(2);
  page.ReadActionData(action);
  page.WriteActionData(action);
  EXPECT_THAT(action.Lines, ElementsAre("a", "", ""));
  EXPECT_EQ(action.Text, "default");
  EXPECT_EQ(action.Mode, TSampleMode::smSecond);
  EXPECT_EQ(action.Flag.Raw(), -1);
}

TEST_F(Page, WritesNothingWhenOneTextDoesNotFit) {
  for (const auto& [control, text, message] :
       {std::tuple{"txtNumber", "many", "Number: \"many\" is not a whole"},
        std::tuple{"txtCount", "-1", "Count: \"-1\" is not a whole"},
        std::tuple{"cbMode", "Fourth", "Mode: \"Fourth\" is not one of"}}) {
    page.ReadActionData(action);
    page.Get<TButtonEdit>("txtText").Enter("changed");
    page.Get<TCustomEdit>(control).Enter(text);
    try {
      page.WriteActionData(action);
      ADD_FAILURE() << control;
    } catch (const EVekError& error) {
      EXPECT_THAT(error.what(), HasSubstr(message));
    }
    EXPECT_EQ(action.Text, "default");
  }
}

TEST_F(Page, RefusesAnActionOfAnotherClass) {
  struct TOtherAction final : TCustomSampleAction {
    using TCustomSampleAction::TCustomSampleAction;
    const ActionClass& ClassType() const override { return kClass; }
  } other(host);
  for (const auto operation : {&TFrame::InitPage, &TFrame::ReadActionData, &TFrame::WriteActionData}) {
    try {
      (page.*operation)(other);
      ADD_FAILURE();
    } catch (const EVekError& error) {
      EXPECT_STREQ(error.what(), "the page \"Sample\" edits a TSampleAction, not a TCustomSampleAction");
    }
  }
}

TEST_F(Page, TheButtonBrowsesFromTheText) {
  ScriptedServices services;
  auto& edit = page.Get<TButtonEdit>("TXTTEXT");
  edit.ClickButton();
  EXPECT_THAT(services.asked, ElementsAre("Choose", "default", "Texts|*.txt", ".txt"));
  EXPECT_EQ(edit.Text(), "default");

  services.answer = "chosen.txt";
  edit.ClickButton();
  EXPECT_EQ(edit.Text(), "chosen.txt");
  EXPECT_EQ(action.Text, "default");
  page.WriteActionData(action);
  EXPECT_EQ(action.Text, "chosen.txt");
}

TEST_F(Page, OfAGroupOneRadioButtonIsChecked) {
  auto& on = page.Get<TRadioButton>("rbOn");
  auto& off = page.Get<TRadioButton>("rbOff");
  EXPECT_TRUE(off.Checked());
  on.Click();
  EXPECT_TRUE(on.Checked());
  EXPECT_FALSE(off.Checked());
}

TEST_F(Page, TellsItsOwnerWhatChanged) {
  struct Owner final : IVekPageOwner {
    void ControlChanged(const TControl& control) override { changed.push_back(control.Name()); }
    StringList changed;
  } owner;
  page.InitFrame(owner);
  page.Get<TRadioButton>("rbOn").Click();
  page.Get("txtNumber").SetEnabled(false);
  EXPECT_THAT(owner.changed, testing::UnorderedElementsAre("rbOn", "rbOff", "rbOn", "txtNumber"));
}

TEST_F(Page, ControlsSayWhatTheyOffer) {
  const auto choices = [this](const char* name) { return page.FindControl(name)->Choices(); };
  EXPECT_THAT(choices("cbMode"), ElementsAre("First", "Second", "Third"));
  EXPECT_THAT(choices("cbWide"), ElementsAre("one", "two"));
  EXPECT_THAT(choices("rbOff"), ElementsAre("False"));
  EXPECT_THAT(choices("chkModesThird"), ElementsAre("smThird"));
  EXPECT_THAT(choices("chkFlag"), ElementsAre());
}

TEST_F(Page, IsMadeByItsClass) {
  const PageClass& pageClass = kPageClass<TSamplePage>;
  EXPECT_EQ(pageClass.className, "TSamplePage");
  const auto made = pageClass.create();
  EXPECT_EQ(made->PageName(), "Sample");
  EXPECT_EQ(made->Controls().front()->Caption(), "Texts");
  EXPECT_EQ(made->Controls()[1]->Hint(), "A file");
  EXPECT_EQ(made->FindControl("txtNoSuch"), nullptr);
}

/// One check box rules another.
class TRulingPage final : public TActionFrame<TSampleAction> {
 public:
  TRulingPage() : TActionFrame("Ruling") {
    ruler_.OnChange([this] {
      if (!ruler_.Checked()) ruled_.SetChecked(false);
      ruled_.SetEnabled(ruler_.Checked());
    });
  }
  TCheckBox& ruler_ = CheckBox("chkRuler", "Ruler", "Switch");
  TCheckBox& ruled_ = CheckBox("chkRuled", "Ruled", "Flag");
};

TEST_F(Page, OnlyTheUserRunsAControlsHook) {
  TRulingPage ruling;
  ruling.ReadActionData(action);
  EXPECT_TRUE(ruling.ruled_.Checked());
  ruling.ruler_.Click();
  ruling.ruler_.Click();
  EXPECT_FALSE(ruling.ruled_.Checked());
  ruling.ruled_.Click();  // disabled
  EXPECT_FALSE(ruling.ruled_.Checked());
  ruling.ruler_.Click();
  ruling.ruled_.Click();
  EXPECT_TRUE(ruling.ruled_.Checked());
}

/// Writes through its setter only, as the properties in a description do.
class TCustomKeyAction : public TVekAction {
 public:
  inline static const ActionClass kClass{.inherited = &TVekAction::kClass, .className = "TCustomKeyAction"};
  using TVekAction::TVekAction;
  const std::string& Path() const { return path_; }
  void SetPath(std::string_view value) { UpdateKeyValue(3, path_, value); }
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override {
    path_ = value;
    updates.push_back(std::to_string(index) + ' ' + path_);
  }
  StringList updates;

 protected:
  bool Execute() override { return true; }

 private:
  std::string path_;
};

class TKeyAction final : public PublishedAction<TKeyAction, TCustomKeyAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TKeyAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomKeyAction::Path, &TCustomKeyAction::SetPath>("Path"),
  };
};

TEST(PageSetters, KeyValuesPassThroughTheHost) {
  struct TKeyPage final : TActionFrame<TKeyAction> {
    TKeyPage() : TActionFrame("Key") { ButtonEdit("txtPath", "Path").BrowsesForDirectory("Choose"); }
  } page;
  NullHost host;
  TKeyAction action(host);
  page.ReadActionData(action);
  ScriptedServices services;
  services.answer = "/folder";
  dynamic_cast<TButtonEdit&>(*page.FindControl("txtPath")).ClickButton();
  EXPECT_THAT(services.asked, ElementsAre("Choose", ""));
  page.WriteActionData(action);
  EXPECT_THAT(action.updates, ElementsAre("3 /folder"));
}

TEST(PageLists, LinesComeAndGo) {
  struct TListPage final : TActionFrame<TSampleAction> {
    TListPage() : TActionFrame("List") { ListBox("lstLines", "Lines"); }
  } page;
  NullHost host;
  TSampleAction action(host);
  action.Lines = {"a", "b"};
  page.ReadActionData(action);
  auto& list = dynamic_cast<TListBox&>(*page.FindControl("lstLines"));
  list.Append("c");
  list.Remove(0);
  list.Remove(7);
  page.WriteActionData(action);
  EXPECT_THAT(action.Lines, ElementsAre("b", "c"));
}

/// A logic class that publishes for the classes below it.
class TSharedAction : public TVekAction {
 public:
  using TVekAction::TVekAction;
  std::string Shared;
  static constexpr PropertyRow kPublished[] = {Published<&TSharedAction::Shared>("Shared")};
  inline static const ActionClass kClass{
      .inherited = &TVekAction::kClass, .className = "TSharedAction", .properties = kPublished};

 protected:
  bool Execute() override { return true; }
};

class TSharingAction final : public PublishedAction<TSharingAction, TSharedAction> {
 public:
  using PublishedAction::PublishedAction;
  int32_t Own = 0;
  static constexpr std::string_view kClassName = "TSharingAction";
  static constexpr PropertyRow kPublished[] = {Published<&TSharingAction::Own>("Own")};
};
static_assert(PropertyOf<TSharingAction, TEdit>::Check("Shared") == PropertyFit::Fits);
static_assert(PropertyOf<TSharedAction, TEdit>::Check("Own") == PropertyFit::NoSuchName);

TEST(SharedPages, EditEveryClassThatHasTheirProperties) {
  struct TSharedPage final : TActionFrame<TSharedAction> {
    TSharedPage() : TActionFrame("Shared") { Edit("txtShared", "Shared"); }
  } page;
  NullHost host;
  TSharingAction action(host);
  action.Shared = "before";
  page.ReadActionData(action);
  dynamic_cast<TEdit&>(*page.FindControl("txtShared")).Enter("after");
  page.WriteActionData(action);
  EXPECT_EQ(action.Shared, "after");
}

// What does not compile in a page.
enum class TOtherMode { omOne };
}  // namespace
template <>
inline constexpr auto kEnumNames<TOtherMode> = Names("TOtherMode", "omOne");
namespace {

template <class Demand>
consteval PropertyFit FitOf(const char* name) {
  return PropertyOf<TSampleAction, Demand>::Check(name);
}
static_assert(FitOf<TEdit>("Text") == PropertyFit::Fits);
static_assert(FitOf<TEdit>("Condition") == PropertyFit::Fits);
static_assert(FitOf<TEdit>("Txet") == PropertyFit::NoSuchName);
static_assert(FitOf<TEdit>("Result") == PropertyFit::RunTimeResult);
static_assert(FitOf<TEdit>("Twice") == PropertyFit::ReadOnly);
static_assert(FitOf<TEdit>("Flag") == PropertyFit::WrongType);
static_assert(FitOf<TCheckBox>("Modes") == PropertyFit::WrongType);
static_assert(FitOf<TListBox>("Lines") == PropertyFit::Fits);
static_assert(FitOf<ChoiceOf<bool>>("Mode") == PropertyFit::WrongType);
static_assert(FitOf<ChoiceOf<TOtherMode>>("Mode") == PropertyFit::OtherEnumeration);
static_assert(FitOf<SetWith<TSampleMode>>("Modes") == PropertyFit::Fits);
static_assert(FitOf<SetWith<TOtherMode>>("Modes") == PropertyFit::OtherEnumeration);

}  // namespace
