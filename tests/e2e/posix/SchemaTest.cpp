#include "gtest/gtest.h"

#include "support/Vekrun.h"

namespace {

struct SchemaCase {
  std::string actions, variables;
  bool holds;
};

/// What the schema says of a file by the tool that editors are measured by; loading must agree.
TEST(Schema, HoldsWhatLoadsAndRefusesWhatDoesNot) {
  const TempFolder folder;
  folder.Write("vekproj.xsd", RunVekrun({"schema"}).out);
  const SchemaCase cases[] = {
      {ActionOf("HDELETE_FILE", "<FileSpec>x</FileSpec><DeleteHidden> true </DeleteHidden>"), "", true},
      {ActionOf("ROBOCOPYICON", "<CopyFlags>[cfData, cfAttrib]</CopyFlags><Retries>-1</Retries>"), "", true},
      {ActionOf("LISTITERATOR", "<ListOfItems><Line>a</Line></ListOfItems>", ActionOf("BEEP", "")), "", true},
      {ActionOf("HTOUCHFILES", "<DateTime>2007-03-05T10:00:00</DateTime>"), "", true},
      {"", R"(<Variable Name="A.b-1" Type="Float" Secret="1">2.5</Variable>)", true},
      {ActionOf("HDELETE_FIEL", ""), "", false},
      {ActionOf("HDELETE_FILE", "<FileSpek>x</FileSpek>"), "", false},
      {ActionOf("HDELETE_FILE", "<FileSpec>x</FileSpec><FileSpec>x</FileSpec>"), "", false},
      {ActionOf("WRITETOTEXTFILE", "<WriteToPosition>toMiddle</WriteToPosition>"), "", false},
      {ActionOf("ROBOCOPYICON", "<CopyFlags>[cfDate]</CopyFlags>"), "", false},
      {R"(<Action Type="SCRIPTACTION"><Script Event="OnExecut">1</Script></Action>)", "", false},
      {"", R"(<Variable Name="A"/><Variable Name="A"/>)", false},
  };
  for (const SchemaCase& wanted : cases) {
    const std::string project = ProjectOf(wanted.actions, wanted.variables);
    folder.Write("p.vekproj", project);
    const auto lint = RunProgram(
        "/usr/bin/xmllint", {"--noout", "--schema", folder.Path("vekproj.xsd"), folder.Path("p.vekproj")});
    EXPECT_EQ(lint.exitCode, wanted.holds ? 0 : 3) << project << lint.err;
    EXPECT_EQ(RunVekrun({"validate", folder.Path("p.vekproj")}).exitCode != 2, wanted.holds) << project;
  }
}

}  // namespace
