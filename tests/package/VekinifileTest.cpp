#include "gmock/gmock.h"

#include "pages/Vekeditors.h"
#include "pages/Vekreadiniframe.h"
#include "pages/Vekwriteiniframe.h"
#include "support/NullHost.h"
#include "support/RunTable.h"
#include "support/ScriptedServices.h"
#include "textini/Vekconversions.h"
#include "textini/Vekinifile.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string kFile = "IniFile=%D%\\f.ini|", kPlace = kFile + "Section=S|ValueName=a|";
const std::string kNoSection = "Section Name not specified";

// Reading.
const std::string kIntoV = kPlace + "VariableName=V|", kDefault = kIntoV + "DefaultValue=";
const std::string kText = kDefault + "d", kBool = "ValueType=vtBool|" + kDefault,
                  kInteger = "ValueType=vtInteger|" + kDefault;
const std::string kNotBool = "Default Value is not True or False and the Value Type is Boolean";

/// What is logged of a value that was read.
std::string Reading(const std::string& defaultText, const std::string& value) {
  return "Reading from IniFile: %D%\\f.ini Section : S ValueName: a Default Value : " + defaultText +
         "|New Value : " + value;
}

/// A line of the file, and what becomes of it as a value of a type.
RunCase Reads(const std::string& line, const std::string& set, const std::string& defaultText,
              const std::string& type, const std::string& value) {
  const std::string file = "f.ini=[S]\n" + line + "\n";
  return {"reads", set + defaultText,         file, true, Reading(defaultText, value),
          file,    "$V=" + type + ' ' + value};
}

std::string NoInteger(const std::string& text) {
  return "Default Value : " + text + " : is not an integer and the Value Type is Integer";
}

// clang-format off
const RunCase kReads[] = {
    Reads("a=~\"x~y\"~", kDefault, "d", "String", "x y"),
    Reads("a=", kDefault, "d", "String", ""),
    Reads("b=1", kDefault, " d ", "String", " d "),
    Reads("a=1", kBool, "false", "Boolean", "True"),
    Reads("a=-2", kBool, "false", "Boolean", "True"),
    Reads("a=0", kBool, "true", "Boolean", "False"),
    Reads("a=0x0", kBool, "true", "Boolean", "False"),
    Reads("a=yes", kBool, " TRUE ", "Boolean", "True"),
    Reads("b=1", kBool, "False", "Boolean", "False"),
    Reads("a=-12", kInteger, "0", "Integer", "-12"),
    Reads("a=0x1F", kInteger, "0", "Integer", "31"),
    Reads("a=12abc", kInteger, "7", "Integer", "7"),
    Reads("a=4294967296", kInteger, "7", "Integer", "7"),
    Reads("b=1", kInteger, "0x10", "Integer", "16"),
    Reads("a=-99098700", kInteger, "1", "Integer", "-99098700"),
    {"NoFile", kText, "", true, Reading("d", "d"), "", "$V=String d"},
    {"NoFolder", kText + "|IniFile=%D%\\none\\f.ini", "", true,
     "Reading from IniFile: %D%\\none\\f.ini Section : S ValueName: a Default Value : d|New Value : d", "", "$V=String d"},
    {"Expanded", "$N=7|" + kFile + "Section=  My $('S')  |ValueName=k%N%|DefaultValue=d%N%|VariableName=%N%", "f.ini=[My~S]\nk7=found\n", true,
     "Reading from IniFile: %D%\\f.ini Section : My S ValueName: k7 Default Value : d7|New Value : found", "f.ini=[My~S]\nk7=found\n",
     "$%N%=String found"},
    {"NoBoolean", kBool + "yes", "", false, kNotBool, ""},
    {"ANumberIsNoBoolean", kBool + "1", "", false, kNotBool, ""},
    {"NoDefaultIsNoBoolean", kBool, "", false, kNotBool, ""},
    {"NoInteger", kInteger + "x", "", false, NoInteger("x"), ""},
    {"NoDefaultIsNoInteger", kInteger, "", false, NoInteger(""), ""},
    {"AFractionIsNoInteger", kInteger + "1.5", "", false, NoInteger("1.5"), ""},
    {"ALargeNumberIsNoInteger", kInteger + "2147483648", "", false, NoInteger("2147483648"), ""},
    {"TheMarkOfMissingIntegers", kInteger + "-99098700", "", false, NoInteger("-99098700"), ""},
    {"AnUnknownFile", kText + "|IniFile=%X%", "", false, "Unable to Read from Ini File : %X%|" + kUnknownX, ""},
    {"AnUnknownName", kText + "|ValueName=%X%", "", false, "Unable to Read Value from Ini File : %X%|" + kUnknownX, ""},
    {"AnUnknownSection", kText + "|Section=%X%", "", false, "Unable to Read from Section : %X%|" + kUnknownX, ""},
    {"AnUnknownDefault", kDefault + "%X%", "", false, "Unable to use default Value  : %X%|" + kUnknownX, ""},
    {"ABlankSection", kText + "|Section=  ", "", false, "Unable to Read from Section :   |" + kNoSection, ""},
    {"NoPath", kText + "|IniFile=f.ini", "", false, "No path to the Ini File specified!", ""},
    {"Held", kText, "^f.ini=[S]\na=1\n", false, "Unable to Read from Ini File : %D%\\f.ini|{32}", "f.ini=[S]\na=1\n"},
};

// Writing.
const std::string kWrite = kPlace + "NewValue=", kOne = "f.ini=[S]\na=1\n", kWriting = "Unable to Write to Ini File : %D%\\f.ini";
const std::string kWriteInteger = "ValueType=vtInteger|" + kWrite, kWriteBool = "ValueType=vtBool|" + kWrite;
const std::string kMayCreate = "AllowCreate=True|", kMaybe = kWriting + "|'maybe' is not a valid boolean value";

RunCase Writes(const std::string& set, const std::string& shown, const std::string& written) {
  return {"writes", set, "f.ini=;~kept\n[S]\na=old\n", true,
          "Writing to IniFile: %D%\\f.iniSection : S ValueName: a Value: " + shown, "f.ini=;~kept\n[S]\na=" + written + "\n"};
}

const RunCase kWrites[] = {
    Writes(kWrite + " x ", " x ", "~x~"),
    Writes(kWrite, "", ""),
    Writes(kWriteBool + "TRUE", "True", "1"),
    Writes(kWriteBool + "false", "False", "0"),
    Writes(kWriteBool + "7", "True", "1"),
    Writes(kWriteBool + "0.0", "False", "0"),
    Writes(kWriteInteger + "-5", "-5", "-5"),
    Writes(kWriteInteger + "0x10", "16", "16"),
    Writes(kWriteInteger + "0xFFFFFFFF", "-1", "-1"),
    {"NoFile", kWrite + "1", "", false, kWriting + "|File does not Exist!", ""},
    {"ANewFile", kMayCreate + kWrite + "1", "", true, "Writing to IniFile: %D%\\f.iniSection : S ValueName: a Value: 1", "f.ini=[S]\r\na=1\r\n"},
    // A failed write into an existing file is no failure.
    {"NoInteger", kMayCreate + kWriteInteger + "12x", "", false, "", ""},
    {"NoIntegerForAFile", kMayCreate + kWriteInteger + "12x", kOne, true, "", kOne},
    {"NoTextForAnInteger", kMayCreate + kWriteInteger, kOne, true, "", kOne},
    {"TheMarkOfMissingIntegers", kMayCreate + kWriteInteger + "-990234", kOne, true, "", kOne},
    {"NoBoolean", kMayCreate + kWriteBool + "maybe", "", false, kMaybe, ""},
    {"NoBooleanForAFile", kMayCreate + kWriteBool + "maybe", kOne, true, kMaybe, kOne},
    {"Held", kWrite + "2", "^" + kOne, true, kWriting + "|{32}", kOne},
    {"NoFolder", kMayCreate + kWrite + "2|IniFile=%D%\\none\\f.ini", "", false, "Unable to Write to Ini File : %D%\\none\\f.ini|{3}", ""},
    {"ReadOnly", kWrite + "2", "!" + kOne, false, "File : %D%\\f.ini is marked as Read Only!", "!" + kOne},
    {"AnUnknownFile", kWrite + "1|IniFile=%X%", "", false, "Unable to Write to Ini File : %X%|" + kUnknownX, ""},
    {"AnUnknownValue", kWrite + "%X%", "", false, "Unable to Write Value to Ini File : %X%|" + kUnknownX, ""},
    {"AnUnknownName", kWrite + "1|ValueName=%X%", "", false, "Unable to Write Value to Ini File : %X%|" + kUnknownX, ""},
    {"AnUnknownSection", kWrite + "1|Section=%X%", "", false, "Unable to Write to Section : %X%|" + kUnknownX, ""},
    {"ABlankSection", kWrite + "1|Section= ", "", false, "Unable to Write to Section :  |" + kNoSection, ""},
    {"NoPath", kWrite + "1|IniFile=f.ini", "", false, "No path to the Ini File specified!", ""},
};
// clang-format on

TEST(IniFileRuns, Reading) { ExpectRuns<TReadIniFileAction>(kReads); }
TEST(IniFileRuns, Writing) { ExpectRuns<TWriteIniFileAction>(kWrites); }

TEST(IniFileRuns, DefaultsThatDoNotFitAreALineOfTheirOwn) {
  ActionFixture fixture;
  const auto action = fixture.Make<TReadIniFileAction>();
  SetProperties(*action, "IniFile=/f.ini|Section=S|ValueName=a|ValueType=vtInteger|VariableName=V");
  EXPECT_FALSE(fixture.Run(*action));
  EXPECT_THAT(fixture.Events().events, ElementsAre(testing::StartsWith("message ")));
}

TEST(Conversions, TextToIntegerAndBoolean) {
  const struct {
    const char* text;
    std::optional<int32_t> integer;
    std::optional<bool> boolean;
  } cases[] = {
      // clang-format off
      {"0", 0, false}, {" 12 ", 12, true}, {"+3", 3, true}, {"-2147483648", INT32_MIN, true}, {"2147483648", {}, true},
      {"$ff", 255, {}}, {"0X7fffffff", INT32_MAX, {}}, {"-0x1", -1, {}}, {"0x100000000", {}, {}}, {"0x", {}, {}},
      {"--1", {}, {}}, {"1 2", {}, {}}, {"", {}, {}}, {"-0.0", {}, false}, {"1e2", {}, true}, {"inf", {}, {}},
      {"True", {}, true}, {"FALSE", {}, false}, {"yes", {}, {}},
      // clang-format on
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
  EXPECT_EQ(action.ValueType, TIniValueType::vtInteger);

  const auto editor = kIniVariableEditor.Create(action, *action.FindProperty("VariableName"));
  EXPECT_EQ(editor->GetAttribute(), TPropertyAttribute::paValueList);
  EXPECT_THAT(editor->GetValues(), ElementsAre("OUT", "COUNT"));
  services.RemoveDesigner();
  EXPECT_THAT(editor->GetValues(), IsEmpty());
}

}  // namespace
