#include "gmock/gmock.h"

#include "iterators/VekIniFileIteratorAction.h"
#include "pages/VekIniFileIteratorFrame.h"
#include "support/LoopFixture.h"
#include "support/NullHost.h"
#include "support/OsFixture.h"
#include "support/ScriptedServices.h"
#include "support/SystemText.h"

using testing::ElementsAre;
using testing::IsEmpty;
using enum TIniIteratorMode;

namespace {

struct IniFileIteratorTest : LoopFixture, testing::Test {
  IniFileIteratorTest() {
    iterator.IniFilename = folder.Path("f.ini");
    for (const char* name : {"S", "N", "V", "LOOP"}) Context().SetVariable(name, "-");
    iterator.SetLoopVariable("LOOP");
  }

  TIniFileIterator& iterator = AddLoop<TIniFileIterator>("%S% %N% %V% %LOOP%");
};

TEST_F(IniFileIteratorTest, AssignsTheVariablesOfItsMode) {
  folder.Write("f.ini", "x=0\n[One]\na=1\n;c=2\nb = \" x=y \"\nbare\n[Two]\n");
  const struct {
    TIniIteratorMode mode;
    std::string sections, section, name, value;
    StringList wanted;
  } cases[] = {
      {iiSections, "S", "", "N", "V", {"One - - -", "Two - - -"}},
      {iiValues, "S", "One", "N", "", {"- a - -", "- b - -"}},
      {iiValues, "", "one", "N", "V", {"- a 1 -", "- b  x=y  -"}},
      {iiValues, "", "One", "", "V", {"- - 1 -", "- -  x=y  -"}},
      {iiValues, "", "Two", "N", "V", {}},
      {iiValues, "", "Three", "N", "V", {}},
  };
  for (const auto& wanted : cases) {
    for (const char* name : {"S", "N", "V"}) Context().SetVariable(name, "-");
    iterator.IteratorMode = wanted.mode;
    iterator.SectionsVar = wanted.sections;
    iterator.SectionName = wanted.section;
    iterator.NameVariable = wanted.name;
    iterator.ValueVariable = wanted.value;
    EXPECT_EQ(Iterate(), wanted.wanted);
    EXPECT_THAT(Lines(), ElementsAre("Searching for items...",
                                     "Found " + std::to_string(wanted.wanted.size()) + " Items"));
  }
}

TEST_F(IniFileIteratorTest, AMissingFileHasNoSections) {
  iterator.SectionsVar = "S";
  EXPECT_THAT(Iterate(), IsEmpty());
  EXPECT_THAT(Lines(), ElementsAre("Searching for items...", "Found 0 Items"));
}

TEST_F(IniFileIteratorTest, Failures) {
  EXPECT_FALSE(ActionFixture::Run(iterator));
  EXPECT_THAT(Errors(), ElementsAre("Sections Variable not set"));
  iterator.IteratorMode = iiValues;
  EXPECT_FALSE(ActionFixture::Run(iterator));
  EXPECT_THAT(Errors(), ElementsAre("Name and Value variables not set"));
  EXPECT_THAT(Lines(), IsEmpty());

  iterator.NameVariable = "N";
  EXPECT_FALSE(ActionFixture::Run(iterator));
  EXPECT_THAT(Errors(),
              ElementsAre("Section Name: the text is blank",
                          "Error while searching for items : Failed to populate list from Ini file."));

  iterator.SectionName = "One";
  folder.Write("f.ini", "[One]\n");
  const ExclusiveOpen other(iterator.IniFilename);
  EXPECT_FALSE(ActionFixture::Run(iterator));
  EXPECT_THAT(Errors(),
              ElementsAre("Error while searching for items : " + SystemText(Win32Error::SharingViolation)));
}

TEST(IniFileIteratorPage, OffersVariablesToTheModeThatIsChosen) {
  ScriptedServices services;
  services.variables = {"OUT"};
  NullHost host;
  TIniFileIterator iterator(host);
  TIniFileIteratorFrame page;
  page.InitPage(iterator);
  page.ReadActionData(iterator);
  auto& name = dynamic_cast<TComboBox&>(*page.FindControl("cmbNameVariable"));
  EXPECT_THAT(name.Items(), ElementsAre("OUT"));
  EXPECT_FALSE(name.Enabled());
  dynamic_cast<TRadioButton&>(*page.FindControl("rbValues")).Click();
  EXPECT_TRUE(name.Enabled());
  EXPECT_FALSE(page.FindControl("cmbSectionsVar")->Enabled());
}

}  // namespace
