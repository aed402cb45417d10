#include "gmock/gmock.h"

#include "pages/VekRobocopyOptionsFrame.h"
#include "pages/VekRobocopySelectionFrames.h"
#include "pages/VekTextReplaceFrame.h"
#include "pages/VekWriteToTextFileFrame.h"
#include "pages/Vekdeletefilesframe.h"
#include "pages/Vekeditors.h"
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

TEST(Editors, AskTheirOwnQuestions) {
  const struct {
    const EditorClass& editor;
    StringList asked;
  } cases[] = {
      {kFileNameEditEx, {"Select File", "old", "All Files(*.*)|*.*", "*.*"}},
      {kIniFileNameEdit, {"Select Ini File", "old", "Configuration files(*.ini)|*.ini", "*.ini"}},
      {kRunProgEditor,
       {"Select Program File", "old", "Program Files (*.exe)|*.exe|All Files (*.*)|*.*", ".exe"}},
      {kStartDirectoryEditor, {"Select Start Directory", "old"}},
  };
  ScriptedServices services;
  NullHost host;
  TDeleteFilesAction action(host);
  action.SetFileSpec("old");
  for (const auto& wanted : cases) {
    wanted.editor.Create(action, *action.FindProperty("FileSpec"))->Edit();
    EXPECT_EQ(services.asked, wanted.asked) << wanted.editor.className;
  }
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

TEST(TextReplacePage, EnablesWhatHasAnEffect) {
  NullHost host;
  TTextReplaceAction action(host);
  TfrmTextReplace page;
  page.ReadActionData(action);
  EXPECT_FALSE(Find<TMemo>(page, "memSearchText").Enabled());
  EXPECT_FALSE(Find<TCheckBox>(page, "chkWholeWords").Enabled());
  Find<TCheckBox>(page, "chkReplaceText").Click();
  EXPECT_TRUE(Find<TCheckBox>(page, "chkWholeWords").Enabled());
  Find<TCheckBox>(page, "chkRegularExpression").Click();
  EXPECT_TRUE(Find<TMemo>(page, "memSearchText").Enabled());
  EXPECT_FALSE(Find<TCheckBox>(page, "chkWholeWords").Enabled());
}

TEST(RobocopyExcludePage, AnAgeIsDaysOrADate) {
  NullHost host;
  TVekRobocopyMirrorAction action(host);
  TRobocopyExcludeFrame page;
  page.ReadActionData(action);
  EXPECT_TRUE(Find<TRadioButton>(page, "rbMinLADDate").Checked());
  Find<TRadioButton>(page, "rbMinLADDays").Click();
  Find<TEdit>(page, "txtMinLADDays").Enter("12");
  Find<TEdit>(page, "txtMaxAgeDate").Enter("2007-03-05");
  Find<TCheckBox>(page, "chkExcludeOffline").Click();
  page.WriteActionData(action);
  EXPECT_TRUE(action.UseMinLADDays && !action.UseMinAgeDays);
  EXPECT_EQ(action.MinLADDays, 12u);
  EXPECT_EQ(action.MaxAgeDate, ParseIso8601("2007-03-05"));
  EXPECT_EQ(action.ExcludeFilesAttrib, TRobocopyAttribFullSet{TRobocopyAttribs::aOffline});
}

TEST(RobocopyOptionsPage, EditsTheOptionsAndNoAction) {
  ScriptedServices services;
  services.answer = "C:\\Robocopy.exe";
  NullHost host;
  TVekRobocopyOptions options(host.GetPlatform());
  TRobocopyOptionsFrame page;
  page.ReadOptions(options);
  auto& location = Find<TButtonEdit>(page, "txtRobocopyLocation");
  location.ClickButton();
  EXPECT_THAT(services.asked, ElementsAre("Select File", "", "Robocopy.exe|Robocopy.exe", ""));
  page.WriteOptions(options);
  EXPECT_EQ(options.RobocopyPath(), "C:\\Robocopy.exe");
  TVekRobocopyMirrorAction action(host);
  EXPECT_THROW(page.ReadActionData(action), EVekError);
}

}  // namespace
