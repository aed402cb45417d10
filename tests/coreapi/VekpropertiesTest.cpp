#include "gmock/gmock.h"

#include "coreapi/Vekproperties.h"
#include "support/NullHost.h"
#include "support/SampleAction.h"

using testing::ElementsAre;

namespace {

const PropertyRow& Row(std::string_view name) {
  for (const PropertyRow& row : TSampleAction::kPublished) {
    if (row.name == name) return row;
  }
  throw std::out_of_range(std::string(name));
}

/// Texts with what their values are written as, and texts that do not fit.
struct TextCase {
  const char* property;
  std::vector<std::pair<const char*, const char*>> texts;
  StringList unfit;
};

// clang-format off
const TextCase kTextCases[] = {
    {"Text", {{"", ""}, {"  kept \t", "  kept \t"}}, {}},
    {"Wide", {{" \xFF ", " \xFF "}}, {}},
    {"Flag", {{"True", "True"}, {" false ", "False"}, {"-1", "True"}}, {}},
    {"Switch", {{"1", "True"}, {"0", "False"}, {"TRUE", "True"}}, {"2", "yes", ""}},
    {"Number", {{"-2147483648", "-2147483648"}, {" 2147483647 ", "2147483647"}, {"007", "7"}},
     {"2147483648", "99999999999999999999", "1.5", "0x10", "1 2", ""}},
    {"Count", {{"4294967295", "4294967295"}}, {"4294967296", "-1"}},
    {"Mode", {{"smThird", "smThird"}, {" SMFIRST ", "smFirst"}}, {"0", ""}},
    {"Modes", {{"[]", "[]"}, {" [ smThird , smfirst ] ", "[smFirst,smThird]"}, {"[smFirst,smFirst]", "[smFirst]"}},
     {"[smFirst,]", "[,smFirst]", "[smNone]", "smFirst", "["}},
    {"Lines", {{"a\r\nb\nc\r", "a\r\nb\r\nc"}, {"", ""}}, {}},
    {"When", {{"2007-03-05T10:00:00", "2007-03-05T10:00:00"}, {"2007-03-05", "2007-03-05T00:00:00"}}, {"2007-02-29", "today"}},
};
// clang-format on

TEST(Properties, HaveTextForms) {
  for (const TextCase& wanted : kTextCases) {
    const PropertyRow& row = Row(wanted.property);
    for (const auto& [text, back] : wanted.texts) {
      const auto value = PropertyFromText(row, text);
      ASSERT_TRUE(value) << wanted.property << " \"" << text << '"';
      EXPECT_EQ(PropertyToText(row, *value), back) << wanted.property;
    }
    for (const std::string& text : wanted.unfit) EXPECT_FALSE(PropertyFromText(row, text)) << text;
  }
}

TEST(Properties, TravelThroughTheirRows) {
  NullHost host;
  TSampleAction action(host), copy(host);
  action.Wide = WideString("w");
  action.Number = -7;
  action.Count = 4000000000;
  action.Mode = TSampleMode::smThird;
  action.Modes = {TSampleMode::smSecond};
  action.Lines = {"", "b"};
  action.When = {0.5};
  action.Flag = false;
  for (const PropertyRow& row : TSampleAction::kPublished) {
    if (row.set) row.set(copy, row.get(action));
  }
  for (const PropertyRow& row : TSampleAction::kPublished) {
    EXPECT_EQ(row.get(copy), row.get(action)) << row.name;
  }
  EXPECT_EQ(copy.Modes, action.Modes);
}

TEST(Properties, ATrueWordBoolIsWrittenWithAllBitsSet) {
  NullHost host;
  TSampleAction action(host);
  action.Flag = WordBool::FromRaw(4);
  EXPECT_EQ(PropertyToText(Row("Flag"), Row("Flag").get(action)), "True");
  Row("Flag").set(action, true);
  EXPECT_EQ(action.Flag.Raw(), -1);
  Row("Flag").set(action, false);
  EXPECT_EQ(action.Flag.Raw(), 0);
}

TEST(Properties, AStoredTruthKeepsItsBitsWhileItIsTrue) {
  const struct {
    int16_t before;
    bool assigned;
    int16_t after;
  } cases[] = {{2, true, 2}, {2, false, 0}, {0, true, -1}, {0, false, 0}};
  NullHost host;
  TSampleAction action(host);
  for (const auto& wanted : cases) {
    action.Truth = WordBool::FromRaw(wanted.before);
    Row("Truth").set(action, wanted.assigned);
    EXPECT_EQ(action.Truth.Raw(), wanted.after) << wanted.before;
  }
}

TEST(Properties, SayWhatTheyAreAndExpect) {
  const struct {
    const char* property;
    const char* typeName;
    const char* expected;
  } cases[] = {
      {"Text", "ByteString", "text"},
      {"Wide", "WideString", "text"},
      {"Flag", "WordBool", "True or False"},
      {"Switch", "Boolean", "True or False"},
      {"Number", "Integer", "a whole number from -2147483648 to 2147483647"},
      {"Count", "Cardinal", "a whole number from 0 to 4294967295"},
      {"Mode", "TSampleMode", "one of smFirst, smSecond, smThird"},
      {"Modes", "TSampleMode", "a set such as [smFirst,smSecond] of smFirst, smSecond, smThird"},
      {"Lines", "StringList", "text"},
      {"When", "DateTime", "a date and time such as 2007-03-05T10:00:00"},
  };
  for (const auto& wanted : cases) {
    EXPECT_EQ(Row(wanted.property).TypeName(), wanted.typeName);
    EXPECT_EQ(DescribeExpectedText(Row(wanted.property)), wanted.expected);
  }
}

/// Collects the names of what is saved.
struct SavedNames final : IVekStateWriter {
  StringList names;
  void WriteProperty(const PropertyRow& row, const PropertyValue&) override { names.emplace_back(row.name); }
};

TEST(Properties, InheritedOnesAreSavedFirstAndResultsNever) {
  NullHost host;
  TSampleAction action(host);
  SavedNames saved;
  action.WriteState(saved);
  EXPECT_THAT(saved.names,
              ElementsAre("Name", "Enabled", "Description", "IgnoreFailure", "Condition", "RetryCount",
                          "RetryDelaySeconds", "TimeoutSeconds", "Always", "Text", "Wide", "Flag", "Truth",
                          "Switch", "Number", "Count", "Mode", "Modes", "Lines", "When"));
  EXPECT_NE(action.FindProperty("result"), nullptr);
  EXPECT_EQ(action.FindProperty("Results"), nullptr);
}

}  // namespace
