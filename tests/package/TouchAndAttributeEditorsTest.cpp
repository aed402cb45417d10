#include "gtest/gtest.h"

#include "fileops/VekFileAttrib.h"
#include "pages/VekFileAttributeEditor.h"
#include "pages/VekTouchFilesDateEditor.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "support/NullHost.h"
#include "support/ScriptedServices.h"

namespace {

TEST(FileAttributeEditor, TakesItsTextsInAnyCaseAndLeavesTheRestAlone) {
  NullHost host;
  TSetFileAttributesAction action(host);
  const auto editor = kFileAttributeEditor.Create(action, *action.FindProperty("Hidden"));
  EXPECT_EQ(editor->GetValues(), (StringList{"Don't Touch", "Set", "Clear"}));
  const struct {
    const char* typed;
    TAttributeSetting stored;
    const char* shown;
  } cases[] = {{"sEt", TAttributeSetting::asSet, "Set"},
               {"clear", TAttributeSetting::asClear, "Clear"},
               {"whatever", TAttributeSetting::asNone, "Don't Touch"}};
  for (const auto& c : cases) {
    editor->SetValue(c.typed);
    EXPECT_EQ(action.Hidden, c.stored) << c.typed;
    EXPECT_EQ(editor->GetValue(), c.shown);
  }
}

TEST(TouchFilesDateEditor, EditsDateTimeAndMarksInADialog) {
  ScriptedServices services;
  NullHost host;
  TTouchFilesAction action(host);
  action.DateTime = *ParseIso8601("2007-03-05T10:30:00");
  Locale& locale = *host.GetPlatform().locale;
  const auto editor = kTouchFilesDateEditor.Create(action, *action.FindProperty("DateTimeString"));
  EXPECT_EQ(editor->GetValue(), locale.ShortDate(action.DateTime) + ' ' + locale.ShortTime(action.DateTime));
  EXPECT_FALSE(editor->Edit());
  services.fillIn = [](TFrame& form) {
    auto& date = dynamic_cast<TEdit&>(*form.FindControl("dtpDate"));
    EXPECT_EQ(date.Text(), "2007-03-05");
    date.Enter("2008-02-29");
    dynamic_cast<TCheckBox&>(*form.FindControl("chkTouchTime")).Click();
  };
  EXPECT_TRUE(editor->Edit());
  EXPECT_EQ(action.DateTime, *ParseIso8601("2008-02-29T10:30:00"));
  EXPECT_EQ(editor->GetValue(), locale.ShortDate(action.DateTime));
}

TEST(TouchFiles, ItsDateTimeIsReadAndWrittenAsText) {
  NullHost host;
  TTouchFilesAction action(host);
  action.DateTime = *ParseIso8601("2007-03-05T10:30:06");
  const std::string text = action.DateTimeAsString();
  action.DateTime = {};
  action.SetDateTimeAsString("no date");
  EXPECT_EQ(action.DateTime, TDateTime());
  action.SetDateTimeAsString(text);
  EXPECT_EQ(ToIso8601(action.DateTime), "2007-03-05T10:30:06");
}

}  // namespace
