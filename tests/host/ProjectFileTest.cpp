#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "host/catalogue/Catalogue.h"
#include "host/project/ProjectFile.h"
#include "support/NullHost.h"
#include "support/SampleAction.h"

namespace {

using testing::ElementsAre;
using testing::StartsWith;

class ProjectFileTest : public testing::Test {
 protected:
  ProjectFileTest() { catalogue_.RegisterAction("Sample", "Tests", TSampleAction::Class(), "SAMPLE"); }

  Project Read(std::string_view text) { return ReadProject(text, "p.vekproj", catalogue_, host_); }

  /// What the reader says to a faulty file; "" when it finds no fault.
  std::string Fault(std::string_view text) {
    try {
      Read(text);
      return "";
    } catch (const EProjectError& error) {
      return error.what();
    }
  }

  static const TSampleAction& Sample(const ActionNode& node) {
    return dynamic_cast<const TSampleAction&>(*node.action);
  }

  Catalogue catalogue_;
  NullHost host_;
};

/// A project around the content of its root, which stands on line 2.
std::string InRoot(std::string_view content) {
  return "<VekProject Version=\"1\">\n" + std::string(content) + "\n</VekProject>\n";
}

/// A project around the content of its one action, which stands on line 4.
std::string InAction(std::string_view content) {
  return InRoot("<Actions>\n<Action Type=\"SAMPLE\">\n" + std::string(content) + "\n</Action>\n</Actions>");
}

std::string InProperties(std::string_view content) {
  return InAction("<Properties>" + std::string(content) + "</Properties>");
}

std::string Repeat(std::string_view text, size_t count) {
  std::string result;
  for (size_t i = 0; i < count; ++i) result += text;
  return result;
}

struct FaultCase {
  std::string text, message;  // without the file's name
};

TEST_F(ProjectFileTest, NamesTheFaultsOfTheFileAsAWhole) {
  using std::string_literals::operator""s;
  const FaultCase kCases[] = {
      {"", "1: the file is empty"},
      {" \n\t ", "1: the file holds no element"},
      {"<!-- only -->", "1: the file holds no element"},
      {"plain", "1: unexpected text \"plain\" outside the root element"},
      {"<VekProject Version=\"1\">\n<Actions>\n</VekProject>", "3: malformed XML: Start-end tags mismatch"},
      {"<VekProject Version=\"1\"/>\n<VekProject Version=\"1\"/>", "2: a second root element \"VekProject\""},
      {"<VekProject Version=\"1\"/>\n\nrest", "3: unexpected text \"rest\" outside the root element"},
      {InRoot("<!--\r\n-->\r<!-- \xC3\xA4\xFF -->"), "4: the byte \"\\xFF\" is not UTF-8"},
      {"\xFF\xFE<\0"s, "1: the file is in UTF-16, not in UTF-8"},
      {"<VekProject\n\0/>"s, "2: the control character \"\\x00\" is not allowed"},
      {InRoot("\x1B"), "2: the control character \"\\x1B\" is not allowed"},
      {"<?xml version='1.0' encoding='ISO-8859-1'?><VekProject Version='1'/>",
       "1: the encoding \"ISO-8859-1\" is not UTF-8"},
      {"<?xml version='1.0'?>\n<!DOCTYPE VekProject SYSTEM \"file:///etc/passwd\"><VekProject Version='1'/>",
       "2: a document type is not allowed"},
      {"<!DOCTYPE a [<!ENTITY b \"xx\"><!ENTITY c \"&b;&b;\">]>\n<VekProject Version=\"&c;\"/>",
       "1: a document type is not allowed"},
      {"<Vekproject Version='1'/>", "1: the root element is \"Vekproject\", not \"VekProject\""},
      {"<VekProject/>", "1: the attribute \"Version\" of VekProject is missing"},
      {"<VekProject Version='2'/>", "1: version \"2\" is not supported; version 1 is"},
      {"<VekProject Version='1' FollowLinks='Yes'/>", "1: FollowLinks: \"Yes\" is not True or False"},
      {"<VekProject Verson='1'/>",
       "1: unknown attribute \"Verson\" of VekProject; did you mean \"Version\"?"},
      {"<VekProject Version='1' Version='1'/>", "1: a second attribute \"Version\" of VekProject"},
      {InRoot("<Variable/>"), "2: unknown element \"Variable\" in VekProject; did you mean \"Variables\"?"},
      {InRoot("\n\n words\nhere <Actions/>"), "4: unexpected text \"words\\nhere\" in VekProject"},
      {InRoot("<Actions/>\n<Variables/><Actions/>"), "3: a second Actions in VekProject"},
      {InRoot("<Actions Name='x'/>"), "2: unknown attribute \"Name\" of Actions"},
      {InRoot("<Actions>&nbsp;</Actions>"), "2: unexpected text \"&nbsp;\" in Actions"},
  };
  for (const auto& [text, message] : kCases) EXPECT_EQ(Fault(text), "p.vekproj:" + message) << text;
}

TEST_F(ProjectFileTest, NamesTheFaultsOfVariablesAndFileSets) {
  const FaultCase kVariables[] = {
      {"<Variable>1</Variable>", "2: the attribute \"Name\" of Variable is missing"},
      {"<Variable Name=''/>", "2: variable name \"\" is not made of letters, digits and _ . - ( )"},
      {"<Variable Name='a b'/>", "2: variable name \"a b\" is not made of letters, digits and _ . - ( )"},
      {"<Variable Name='a' Tipe='x'/>", "2: unknown attribute \"Tipe\" of Variable; did you mean \"Type\"?"},
      {"<Variable Name='a' Type='Intger'/>",
       "2: variable a: unknown type \"Intger\"; did you mean \"Integer\"?"},
      {"<Variable Name='Out'/>\n<Variable Name='OUT'/>", "3: variable OUT: declared twice"},
      {"<Variable Name='a' Type='Integer'>ten</Variable>",
       "2: variable a: \"ten\" is no value of type Integer"},
      {"<Variable Name='a' Type='Boolean'/>", "2: variable a: \"\" is no value of type Boolean"},
      {"<Variable Name='a'>x<b/></Variable>", "2: variable a: unexpected element \"b\""},
      {"<Variable Name='a'>1\n2 &foo; 3</Variable>",
       "3: variable a: malformed XML: undefined reference \"&foo;\""},
      {"<Var Name='a'/>", "2: unknown element \"Var\" in Variables"},
  };
  for (const auto& [text, message] : kVariables) {
    EXPECT_EQ(Fault(InRoot("<Variables>" + text + "</Variables>")), "p.vekproj:" + message);
  }
  const FaultCase kFileSets[] = {
      {"<FileSet BaseDirectory='x'/>", "2: the attribute \"Name\" of FileSet is missing"},
      {"<FileSet Name=' ' BaseDirectory='x'/>", "2: a file set without a name"},
      {"<FileSet Name='s'/>", "2: file set \"s\": the attribute \"BaseDirectory\" of FileSet is missing"},
      {"<FileSet Name='s' BaseDirectory='x'/>\n<FileSet Name='S' BaseDirectory='x'/>",
       "3: file set \"S\": declared twice"},
      {"<FileSet Name='s' BaseDirectory='x'><Includes/></FileSet>",
       "2: file set \"s\": unknown element \"Includes\" in FileSet; did you mean \"Include\"?"},
      {"<FileSet Name='s' BaseDirectory='x'><Include a='b'/></FileSet>",
       "2: file set \"s\": unknown attribute \"a\" of Include"},
  };
  for (const auto& [text, message] : kFileSets) {
    EXPECT_EQ(Fault(InRoot("<FileSets>" + text + "</FileSets>")), "p.vekproj:" + message);
  }
}

TEST_F(ProjectFileTest, NamesTheFaultsOfActions) {
  const FaultCase kCases[] = {
      {InRoot("<Actions><Action/></Actions>"), "2: action /1: the attribute \"Type\" of Action is missing"},
      {InRoot("<Actions><Action Type='SAMPEL'/></Actions>"),
       "2: action /1: unknown type \"SAMPEL\"; did you mean \"SAMPLE\"?"},
      {InAction("<Actions>\n<Action Type='sample'/>\n<Action Type='x\ny'/></Actions>"),
       "6: action /1/2: unknown type \"x y\""},
      {InAction("<Property/>"),
       "4: action /1 SAMPLE: unknown element \"Property\" in Action; did you mean \"Properties\"?"},
      {InAction("<Properties/>\n<Properties/>"), "5: action /1 SAMPLE: a second Properties in Action"},
      {InAction("\ntext"), "5: action /1 SAMPLE: unexpected text \"text\" in Action"},
      {InAction("<Script>1</Script>"), "4: action /1 SAMPLE: the attribute \"Event\" of Script is missing"},
      {InAction("<Script Event='OnSampel'/>"),
       "4: action /1 SAMPLE: unknown script event \"OnSampel\"; did you mean \"OnSample\"?"},
      {InAction("<Script Event='OnSample'/>\n<Script Event='onsample'/>"),
       "5: action /1 SAMPLE: a second script for the event \"onsample\""},
      {InAction("<Script Event='OnSample'>\na && b</Script>"),
       "5: action /1 SAMPLE: malformed XML: a \"&\" must be written as &amp;"},
  };
  for (const auto& [text, message] : kCases) EXPECT_EQ(Fault(text), "p.vekproj:" + message) << text;
}

TEST_F(ProjectFileTest, NamesTheFaultsOfProperties) {
  const FaultCase kCases[] = {
      {"<Tekst>x</Tekst>", "unknown property \"Tekst\"; did you mean \"Text\"?"},
      {"<Result>1</Result>", "unknown property \"Result\""},
      {"<Twice>1</Twice>", "property Twice is read-only"},
      {"<Text/><text/>", "property Text: given twice"},
      {"<Text a='b'/>", "property Text: unknown attribute \"a\" of Text"},
      {"<Text>a<b/></Text>", "property Text: unexpected element \"b\""},
      {"<Text><Line>a</Line></Text>", "property Text: a Line, but the property is no list"},
      {"<Text>&#0;</Text>", "property Text: malformed XML: undefined reference \"&#0;\""},
      {"<Text>&#xD800;</Text>", "property Text: malformed XML: undefined reference \"&#xD800;\""},
      {"<Lines>a</Lines>", "property Lines: unexpected text \"a\" in Lines"},
      {"<Lines><Lime/></Lines>", "property Lines: unknown element \"Lime\" in Lines; did you mean \"Line\"?"},
      {"<Lines><Line><b/></Line></Lines>", "property Lines: unexpected element \"b\""},
      {"<Flag>maybe</Flag>", "property Flag: \"maybe\" is not True or False"},
      {"<Switch/>", "property Switch: \"\" is not True or False"},
      {"<Number>2147483648</Number>",
       "property Number: \"2147483648\" is not a whole number from -2147483648 to 2147483647"},
      {"<RetryCount>-1</RetryCount>",
       "property RetryCount: \"-1\" is not a whole number from 0 to 4294967295"},
      {"<Mode>1</Mode>", "property Mode: \"1\" is not one of smFirst, smSecond, smThird"},
      {"<Modes>[smFirst,]</Modes>",
       "property Modes: \"[smFirst,]\" is not a set such as [smFirst,smSecond] of smFirst, smSecond, "
       "smThird"},
      {"<When>a\t&#1;&#x2028;" + std::string(100, 'x') + "</When>",
       "property When: \"a\\t\\x01\\u2028" + std::string(76, 'x') +
           "...\" is not a date and time such as 2007-03-05T10:00:00"},
      {"rest", "unexpected text \"rest\" in Properties"},
  };
  for (const auto& [text, message] : kCases) {
    EXPECT_EQ(Fault(InProperties(text)), "p.vekproj:4: action /1 SAMPLE: " + message);
  }
}

TEST_F(ProjectFileTest, CommandLineValuesRaiseTheSameWordingWithoutAPlace) {
  TSampleAction action(host_);
  const auto message = [](auto call) -> std::string {
    try {
      call();
      return "";
    } catch (const EProjectError& error) {
      return error.what();
    }
  };
  EXPECT_EQ(message([&] { AssignProperty(action, "Flag", "x"); }),
            "property Flag: \"x\" is not True or False");
  EXPECT_EQ(message([&] { AssignProperty(action, "Flg", "x"); }),
            "unknown property \"Flg\"; did you mean \"Flag\"?");
  EXPECT_EQ(message([&] { AppendToListProperty(action, "Text", "x"); }), "property Text is not a list");
  EXPECT_EQ(message([&] { AttachScript(action, "OnSimple", ""); }),
            "unknown script event \"OnSimple\"; did you mean \"OnSample\"?");
  AssignProperty(action, "text", " kept ");
  AppendToListProperty(action, "Lines", "one");
  AppendToListProperty(action, "Lines", "two\n");
  EXPECT_EQ(action.Text, " kept ");
  EXPECT_THAT(action.Lines, ElementsAre("one", "two\n"));
}

constexpr std::string_view kFullProject = R"(<?xml version="1.0" encoding="UTF-8"?>
<VekProject Version="1" FollowLinks="True">
  <Variables>
    <Variable Name="OUT" Type="String">%PROJECTDIR%\out </Variable>
    <Variable Name="COUNT" Type="Integer" Secret="True" Required="True" Export="True">%OUT%</Variable>
  </Variables>
  <FileSets>
    <FileSet Name="A &amp; &quot;B&quot;" BaseDirectory="src&#10;">
      <Include>**\*.cpp</Include>
      <Include> *.h</Include>
      <Exclude>generated\**</Exclude>
    </FileSet>
  </FileSets>
  <Actions>
    <Action Type="SAMPLE">
      <Properties>
        <Name>first</Name>
        <Enabled>False</Enabled>
        <Description/>
        <IgnoreFailure>True</IgnoreFailure>
        <Condition>1 &lt; 2 &amp;&amp; 3 > 2</Condition>
        <RetryCount>4294967295</RetryCount>
        <RetryDelaySeconds>0</RetryDelaySeconds>
        <TimeoutSeconds>0</TimeoutSeconds>
        <Always>False</Always>
        <Text/>
        <Wide>Grüße 😀</Wide>
        <Flag>False</Flag>
        <Truth>True</Truth>
        <Switch>True</Switch>
        <Number>-2147483648</Number>
        <Count>7</Count>
        <Mode>smThird</Mode>
        <Modes>[smFirst,smThird]</Modes>
        <Lines>
          <Line>one</Line>
          <Line/>
          <Line> three
 lines</Line>
        </Lines>
        <When>2007-03-05T10:00:00</When>
      </Properties>
      <Script Event="OnSample"><![CDATA[
if (a < b && c) d("&amp;");
]]></Script>
      <Actions>
        <Action Type="SAMPLE">
          <Properties>
            <Name/>
            <Enabled>True</Enabled>
            <Description/>
            <IgnoreFailure>False</IgnoreFailure>
            <Condition/>
            <RetryCount>0</RetryCount>
            <RetryDelaySeconds>0</RetryDelaySeconds>
            <TimeoutSeconds>0</TimeoutSeconds>
            <Always>False</Always>
            <Text>default</Text>
            <Wide/>
            <Flag>True</Flag>
            <Truth>True</Truth>
            <Switch>False</Switch>
            <Number>-1</Number>
            <Count>0</Count>
            <Mode>smSecond</Mode>
            <Modes>[]</Modes>
            <Lines/>
            <When>1899-12-30T00:00:00</When>
          </Properties>
        </Action>
      </Actions>
    </Action>
  </Actions>
</VekProject>
)";

TEST_F(ProjectFileTest, ReadsEveryPart) {
  const Project project = Read(kFullProject);
  ASSERT_EQ(project.variables.size(), 2u);
  EXPECT_EQ(project.variables[0].text, "%PROJECTDIR%\\out ");
  EXPECT_EQ(project.variables[1].type, "Integer");
  EXPECT_EQ(project.variables[1].line, 5);
  ASSERT_EQ(project.fileSets.size(), 1u);
  EXPECT_EQ(project.fileSets[0].name, "A & \"B\"");
  EXPECT_EQ(project.fileSets[0].baseDirectory, "src\n");
  EXPECT_THAT(project.fileSets[0].includes, ElementsAre("**\\*.cpp", " *.h"));
  EXPECT_THAT(project.fileSets[0].excludes, ElementsAre("generated\\**"));

  ASSERT_EQ(project.actions.size(), 1u);
  const TSampleAction& action = Sample(project.actions[0]);
  EXPECT_EQ(action.Name, "first");
  EXPECT_FALSE(action.Enabled);
  EXPECT_EQ(action.Condition, "1 < 2 && 3 > 2");
  EXPECT_EQ(action.RetryCount, 4294967295u);
  EXPECT_EQ(action.Text, "");
  EXPECT_EQ(action.Wide, "Grüße 😀");
  EXPECT_FALSE(action.Flag);
  EXPECT_TRUE(action.Switch);
  EXPECT_EQ(action.Number, std::numeric_limits<int32_t>::min());
  EXPECT_EQ(action.Mode, TSampleMode::smThird);
  EXPECT_EQ(action.Modes, (SetOf{TSampleMode::smFirst, TSampleMode::smThird}));
  EXPECT_THAT(action.Lines, ElementsAre("one", "", " three\n lines"));
  EXPECT_EQ(action.When, *ParseIso8601("2007-03-05T10:00:00"));
  EXPECT_EQ(project.actions[0].action->GetScriptByName("OnSample")->Text(),
            "\nif (a < b && c) d(\"&amp;\");\n");
  ASSERT_EQ(project.actions[0].children.size(), 1u);
  EXPECT_EQ(project.actions[0].children[0].line, 47);
  EXPECT_EQ(Sample(project.actions[0].children[0]).Text, "default");
}

TEST_F(ProjectFileTest, WritesWhatItReadToTheByte) {
  EXPECT_EQ(WriteProject(Read(kFullProject)), kFullProject);
}

TEST_F(ProjectFileTest, AnyTextSurvivesWritingAndReading) {
  std::string controls;
  for (char c = 1; c < 0x20; ++c) controls += c;
  const std::string kTexts[] = {" ",
                                "\n",
                                "\r\n",
                                "\t x \t",
                                "a]]>b",
                                "<a b=\"c\">'&amp;",
                                controls,
                                "\x7F",
                                "&#13;",
                                "%A% $(1 < 2 && x)",
                                "<!-- c -->",
                                "<![CDATA[x]]>",
                                "\xEF\xBB\xBF",
                                "\u0085\u2028"};
  for (const std::string& text : kTexts) {
    Project project;
    project.variables.push_back({"V", "String", text});
    project.fileSets.push_back({text + "n", text, {text}, {text}});
    auto action = std::make_unique<TSampleAction>(host_);
    action->Text = text;
    action->Lines = {text, "", text};
    action->GetScriptByName("OnSample")->SetText("x" + text);
    project.actions.push_back({"SAMPLE", std::move(action), {}});
    const std::string written = WriteProject(project);
    Project again = Read(written);
    EXPECT_EQ(again.variables[0].text, text);
    EXPECT_EQ(again.fileSets[0].name, text + "n");
    EXPECT_EQ(again.fileSets[0].baseDirectory, text);
    EXPECT_THAT(again.fileSets[0].excludes, ElementsAre(text));
    EXPECT_EQ(Sample(again.actions[0]).Text, text);
    EXPECT_THAT(Sample(again.actions[0]).Lines, ElementsAre(text, "", text));
    EXPECT_EQ(again.actions[0].action->GetScriptByName("OnSample")->Text(), "x" + text);
    EXPECT_EQ(WriteProject(again), written);
  }
}

TEST_F(ProjectFileTest, RefusesToWriteWhatAFileCannotHold) {
  for (const std::string& text : {std::string("a\xFF"), std::string("a\0", 2)}) {
    Project project;
    project.actions.push_back({"SAMPLE", std::make_unique<TSampleAction>(host_), {}});
    AssignProperty(*project.actions[0].action, "Text", text);
    try {
      WriteProject(project);
      ADD_FAILURE() << "written";
    } catch (const EProjectError& error) {
      EXPECT_THAT(error.what(), StartsWith("action /1 SAMPLE: property Text: \"a\\x"));
    }
  }
}

TEST_F(ProjectFileTest, KeepsWhiteSpaceAndJoinsThePiecesOfAText) {
  const std::pair<std::string_view, std::string_view> kCases[] = {
      {"  a\tb  ", "  a\tb  "},
      {"\r\na\rb\nc&#13;", "\na\nb\nc\r"},
      {"a<!-- no -->b<![CDATA[<&amp;>\r\n]]>c<?pi x?>d", "ab<&amp;>\ncd"},
      {"&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;&amp;lt;", "<>&\"'A😀&lt;"},
      {"<![CDATA[]]>", ""},
  };
  for (const auto& [written, text] : kCases) {
    const Project project = Read(InProperties("<Text>" + std::string(written) + "</Text>"));
    EXPECT_EQ(Sample(project.actions[0]).Text, text);
  }
  const Project project =
      Read("\xEF\xBB\xBF" + InProperties("<Flag> -1\n</Flag><!-- c --><Transient>t</Transient>"));
  EXPECT_TRUE(Sample(project.actions[0]).Flag);
  EXPECT_EQ(Sample(project.actions[0]).Transient, "t");
  EXPECT_EQ(Sample(project.actions[0]).Text, "default") << "missing: the constructor's default";
}

TEST_F(ProjectFileTest, SurvivesHostileNesting) {
  const auto nested = [](size_t levels) {
    return InRoot(Repeat("<Actions><Action Type='SAMPLE'>", levels) + Repeat("</Action></Actions>", levels));
  };
  EXPECT_EQ(Fault(nested(100)), "");
  EXPECT_EQ(Fault(nested(101)), "p.vekproj:2: actions are nested more than 100 deep");
  EXPECT_EQ(Fault(nested(100'000)), "p.vekproj:2: actions are nested more than 100 deep");
  constexpr size_t kDeep = 1'000'000;
  EXPECT_EQ(Fault(InProperties("<Text>" + Repeat("<a>", kDeep) + Repeat("</a>", kDeep) + "</Text>")),
            "p.vekproj:4: action /1 SAMPLE: property Text: unexpected element \"a\"");
  EXPECT_EQ(Fault(Repeat("<a>", kDeep)), "p.vekproj:1: malformed XML: Start-end tags mismatch");
  EXPECT_EQ(Fault(Repeat("<!DOCTYPE a [", kDeep)),
            "p.vekproj:1: malformed XML: Error parsing document type declaration");
  EXPECT_THAT(Fault(InProperties("<" + std::string(kDeep, 'x') + "/>")),
              StartsWith("p.vekproj:4: action /1 SAMPLE: unknown property \"xxx"));
}

}  // namespace
