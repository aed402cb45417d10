#include <algorithm>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "pages/FCopyMoveEditFrame.h"
#include "pages/FRunProgFrame.h"
#include "pages/VekCreateFileFrame.h"
#include "pages/VekFileIteratorFrame.h"
#include "pages/VekFileNameEditEx.h"
#include "pages/VekFileSetCopyMoveFrame.h"
#include "pages/VekWriteToTextFileFrame.h"
#include "pages/Vekdeletefilesframe.h"
#include "pages/Vekreadiniframe.h"
#include "pages/Vekwriteiniframe.h"
#include "support/NullHost.h"
#include "support/ScriptedServices.h"

using testing::ElementsAre;

namespace {

template <class Control>
Control& Find(const TFrame& page, std::string_view name) {
  return dynamic_cast<Control&>(*page.FindControl(name));
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
  action.FailIfNoFile = WordBool::FromRaw(2);
  TDeleteFilesFrame page;
  page.ReadActionData(action);
  Find<TButtonEdit>(page, "txtSource").Enter("*.bak");
  Find<TCheckBox>(page, "chkDeleteReadOnly").Click();
  page.WriteActionData(action);
  EXPECT_EQ(action.FileSpec(), "*.bak");
  EXPECT_EQ(action.DeleteReadOnly.Raw(), -1);
  EXPECT_EQ(action.DeleteHidden.Raw(), -1);
  EXPECT_EQ(action.FailIfNoFile.Raw(), 2);  // a truth that did not change is kept as it is
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

/// Properties that could be edited and are not.
template <class Action, class Page>
StringList Unedited() {
  StringList names;
  const Page page;
  for (const PropertyRow& row : Action::kPublished) {
    const auto binds = [&row](const auto& control) {
      return control->Property() && control->Property()->name == row.name;
    };
    if (row.published && row.set && !std::ranges::any_of(page.Controls(), binds))
      names.emplace_back(row.name);
  }
  return names;
}

TEST(Pages, EditEveryProperty) {
  const StringList all;
  EXPECT_EQ((Unedited<TDeleteFilesAction, TDeleteFilesFrame>()), all);
  EXPECT_EQ((Unedited<TVekCreateTextFileAction, TCreateFileFrame>()), all);
  EXPECT_EQ((Unedited<TVekWriteToTextFileAction, TWriteToTextFileFrame>()), all);
  EXPECT_EQ((Unedited<TReadIniFileAction, TReadIniFrame>()), all);
  EXPECT_EQ((Unedited<TWriteIniFileAction, TWriteIniFrame>()), all);
  EXPECT_EQ((Unedited<TVekFileSetCopyMoveAction, TFileSetCopyMoveFrame>()), all);
  EXPECT_EQ((Unedited<TFileIterator, TFileIteratorFrame>()), all);
  EXPECT_EQ((Unedited<TRunProgramAction, TRunProgramFrame>()), all);
  EXPECT_EQ((Unedited<TRunDosCMDAction, TRunDosCmdFrame>()), all);
  EXPECT_EQ((Unedited<TCopyFilesAction, TCopyFrame>()), (StringList{"FilesAffected", "ErrorCount"}));
  EXPECT_EQ((Unedited<TMoveFilesAction, TMoveFrame>()),
            (StringList{"Recurse", "FilesAffected", "ErrorCount"}));
}

}  // namespace
