#include <set>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "pages/VekCreateFileFrame.h"
#include "pages/VekFileNameEditEx.h"
#include "pages/VekWriteToTextFileFrame.h"
#include "pages/Vekdeletefilesframe.h"
#include "support/NullHost.h"
#include "support/ScriptedServices.h"

using testing::ElementsAre;

namespace {

StringList Layout(const TFrame& page) {
  StringList lines{page.PageName()};
  for (const auto& control : page.Controls()) {
    lines.push_back(std::string(control->ClassName()) + '|' + control->Name() + '|' + control->Caption() +
                    '|' + control->Hint() + '|' +
                    std::string(control->Property() ? control->Property()->name : std::string_view()));
  }
  return lines;
}

template <class Control>
Control& Find(const TFrame& page, std::string_view name) {
  return dynamic_cast<Control&>(*page.FindControl(name));
}

TEST(DeleteFilesPage, IsLaidOut) {
  EXPECT_THAT(
      Layout(TDeleteFilesFrame()),
      ElementsAre("Details", "THeading||File Spec||", "TButtonEdit|txtSource||Source Files|FileSpec",
                  "THeading||Options||", "TCheckBox|chkDeleteReadOnly|Delete Read Only Files||DeleteReadOnly",
                  "TCheckBox|chkDeleteHiddenFiles|Delete Hidden Files||DeleteHidden",
                  "TCheckBox|chkFailIfZero|Fail if Zero Files Affected||FailIfNoFile"));
}

TEST(DeleteFilesPage, BrowsesForTheSource) {
  ScriptedServices services;
  services.answer = "C:\\chosen.txt";
  TDeleteFilesFrame page;
  auto& source = Find<TButtonEdit>(page, "txtSource");
  source.SetText("C:\\*.tmp");
  source.ClickButton();
  EXPECT_THAT(services.asked, ElementsAre("Select File", "C:\\*.tmp", "All Files (*.*)|*.*", ""));
  EXPECT_EQ(source.Text(), "C:\\chosen.txt");
}

TEST(DeleteFilesPage, WritesThroughTheSetters) {
  NullHost host;
  TDeleteFilesAction action(host);
  action.DeleteHidden = WordBool::FromRaw(2);
  action.SetFailIfNoFile(false);
  action.SetFailIfNoFile(WordBool::FromRaw(2));
  TDeleteFilesFrame page;
  page.ReadActionData(action);
  Find<TButtonEdit>(page, "txtSource").Enter("*.bak");
  Find<TCheckBox>(page, "chkDeleteReadOnly").Click();
  page.WriteActionData(action);
  EXPECT_EQ(action.FileSpec(), "*.bak");
  EXPECT_EQ(action.DeleteReadOnly.Raw(), -1);
  EXPECT_EQ(action.DeleteHidden.Raw(), -1);
  EXPECT_EQ(action.FailIfNoFile().Raw(), 2);  // its setter keeps a truth that did not change
}

TEST(DeleteFilesEditor, AsksItsOwnQuestions) {
  ScriptedServices services;
  std::string text = "old";
  kEditorClass<TFileNameEditEx>.create()->Edit(text);
  EXPECT_THAT(services.asked, ElementsAre("Select File", "old", "All Files(*.*)|*.*", "*.*"));
}

TEST(WriteToTextFilePage, ChoosesThePosition) {
  NullHost host;
  TVekWriteToTextFileAction action(host);
  TWriteToTextFileFrame page;
  page.ReadActionData(action);
  EXPECT_TRUE(Find<TRadioButton>(page, "rbToEnd").Checked());
  Find<TRadioButton>(page, "rbToStart").Click();
  page.WriteActionData(action);
  EXPECT_EQ(action.WriteToPosition, TVekWriteToPos::toStart);
}

template <class Action, class Page>
void ExpectEveryPropertyEdited() {
  std::set<std::string_view> bound;
  const Page page;
  for (const auto& control : page.Controls()) {
    if (control->Property()) bound.insert(control->Property()->name);
  }
  for (const PropertyRow& row : Action::kPublished) {
    EXPECT_EQ(bound.count(row.name), row.published && row.set ? 1u : 0u)
        << Page::kClassName << ' ' << row.name;
  }
}

TEST(Pages, EditEveryProperty) {
  ExpectEveryPropertyEdited<TDeleteFilesAction, TDeleteFilesFrame>();
  ExpectEveryPropertyEdited<TVekCreateTextFileAction, TCreateFileFrame>();
  ExpectEveryPropertyEdited<TVekWriteToTextFileAction, TWriteToTextFileFrame>();
}

}  // namespace
