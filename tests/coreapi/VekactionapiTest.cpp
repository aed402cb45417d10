#include "gmock/gmock.h"

#include "coreapi/Vekactionapi.h"
#include "support/NullHost.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Counts what key values set off.
struct KeyHost final : NullHost {
  int modified = 0;
  StringList errors;
  void SetProjectModified() override { ++modified; }
  void ReportError(std::string_view text) override { errors.emplace_back(text); }
  std::string ExpandExpression(std::string_view text) override {
    if (text == "bad") throw EVekExpressionError("cannot be expanded");
    return std::string(text);
  }
};

constexpr std::string_view kBaseLines[] = {"[Base]", "One=First"};
constexpr std::string_view kDerivedLines[] = {"[Derived]", "Two=Second"};

/// Two key values, and an Execute that a test supplies.
class TBaseAction : public TVekAction {
 public:
  inline static const ActionClass kClass{.inherited = &TVekAction::kClass,
                                         .className = "TBaseAction",
                                         .actionName = "Base",
                                         .helpTopicID = 7,
                                         .quickHelpFilename = "Plugins\\Base.html",
                                         .aliases = kBaseLines,
                                         .help = kBaseLines,
                                         .hiddenProperties = kBaseLines,
                                         .readOnlyProperties = kBaseLines};
  using TVekAction::TVekAction;
  const ActionClass& ClassType() const override { return kClass; }

  std::string keys[2];
  StringList stored;
  std::string format;
  std::function<bool()> execute;
  void SetKey(int32_t index, std::string_view value) { UpdateKeyValue(index, keys[index], value); }

  std::string GetDescriptionFormatString() const override {
    return format.empty() ? TVekAction::GetDescriptionFormatString() : format;
  }
  std::string GetDescriptionKeyValue(int32_t index) const override { return index < 2 ? keys[index] : "-"; }
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override {
    keys[index] = value;
    stored.push_back(std::to_string(index) + '=' + keys[index]);
  }

  using TVekAction::TryExpandExpression;

 protected:
  bool Execute() override { return execute(); }
};

class TDerivedAction final : public TBaseAction {
 public:
  inline static const ActionClass kClass{.inherited = &TBaseAction::kClass,
                                         .className = "TDerivedAction",
                                         .aliases = kDerivedLines,
                                         .help = kDerivedLines,
                                         .hiddenProperties = kDerivedLines,
                                         .readOnlyProperties = kDerivedLines,
                                         .raises = true};
  using TBaseAction::TBaseAction;
  const ActionClass& ClassType() const override { return kClass; }
};

TEST(Description, RendersTheKeyValues) {
  KeyHost host;
  TBaseAction action(host);
  EXPECT_EQ(action.GetDescription(), "Base");
  action.keys[0] = "a %s b";
  action.keys[1] = "c";
  EXPECT_EQ(action.GetDescription(), "Base [ a %s b ]");
  for (const auto& [format, wanted] :
       {std::pair{"%s to %s", "a %s b to c"}, std::pair{"%s%s%s!", "a %s bc-!"}, std::pair{"100%", "100%"},
        std::pair{"none", "none"}}) {
    action.format = format;
    EXPECT_EQ(action.GetDescription(), wanted);
  }
  action.Description = "own words";
  EXPECT_EQ(action.GetDescription(), "own words");
}

TEST(KeyValues, AreStoredByTheHostOnly) {
  KeyHost host;
  TBaseAction action(host);
  action.SetKey(1, "x");
  action.SetKey(1, "x");  // the same value takes the same way
  action.SetKey(0, "y");
  EXPECT_THAT(action.stored, ElementsAre("1=x", "1=x", "0=y"));
  EXPECT_EQ(host.modified, 3);
}

TEST(Answers, InheritedLinesComeFirst) {
  KeyHost host;
  const TDerivedAction action(host);
  using Answer = void (TCustomVekAction::*)(StringList&) const;
  const struct {
    Answer answer;
    const char* first;
  } cases[] = {{&TCustomVekAction::GetPropertyAlias, "[Action]"},
               {&TCustomVekAction::GetPropertyHelp, "Name=Optional name, by which scripts find the action"},
               {&TCustomVekAction::GetHiddenProperties, "[Base]"},
               {&TCustomVekAction::GetReadOnlyProperties, "[Base]"}};
  for (const auto& wanted : cases) {
    StringList lines{"kept"};
    (action.*wanted.answer)(lines);
    ASSERT_GE(lines.size(), 5u);
    EXPECT_EQ(lines[0], "kept");
    EXPECT_EQ(lines[1], wanted.first);
    EXPECT_THAT(StringList(lines.end() - 4, lines.end()),
                ElementsAre("[Base]", "One=First", "[Derived]", "Two=Second"));
  }
  EXPECT_EQ(action.GetActionName(), "Base");
  EXPECT_EQ(action.GetHelpTopicID(), 7);
  EXPECT_EQ(action.GetQuickHelpFilename(), "Plugins\\Base.html");
}

TEST(Run, LetsNoExceptionOut) {
  KeyHost host;
  TBaseAction action(host);
  action.execute = []() -> bool { throw std::runtime_error("oops"); };
  EXPECT_FALSE(action.Run());
  action.execute = []() -> bool { throw 1; };
  EXPECT_FALSE(action.Run());
  TDerivedAction raising(host);
  raising.execute = []() -> bool { throw EVekError("as agreed"); };
  EXPECT_FALSE(raising.Run());
  EXPECT_THAT(host.errors,
              ElementsAre("Contract breach: an exception left Execute: oops",
                          "Contract breach: an exception left Execute: unknown exception", "as agreed"));
  raising.execute = [] { return true; };
  EXPECT_TRUE(raising.Run());
}

TEST(TryExpand, FailsOnWhatCannotBeExpandedAndOnABlankTextThatIsRequired) {
  KeyHost host;
  const TBaseAction action(host);
  std::string expanded;
  EXPECT_TRUE(action.TryExpandExpression("Title", " text ", expanded, true));
  EXPECT_EQ(expanded, " text ");
  EXPECT_TRUE(action.TryExpandExpression("Title", "", expanded, false));
  EXPECT_THAT(host.errors, IsEmpty());
  EXPECT_FALSE(action.TryExpandExpression("Title", "bad", expanded, false));
  EXPECT_FALSE(action.TryExpandExpression("Title", " \r\n", expanded, true));
  EXPECT_THAT(host.errors, ElementsAre("Title: cannot be expanded", "Title: the text is blank"));
}

}  // namespace
