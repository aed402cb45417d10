#include "gmock/gmock.h"

#include "forms/Vekpropertyeditors.h"
#include "support/NullHost.h"
#include "support/SampleAction.h"
#include "support/ScriptedServices.h"

using testing::ElementsAre;

namespace {

constexpr EditorClass kIconEdit = EditorClassOf<TFileNameEdit>("TIconEdit", {"Icon", "Icons|*.ico", ".ico"});

TEST(PropertyEditors, RunTheirDialogOnTheText) {
  const struct {
    const EditorClass& editor;
    StringList asked;
  } cases[] = {
      {kFileNameEdit, {"Select File", "old", "All Files (*.*)|*.*", "*.*"}},
      {kIconEdit, {"Icon", "old", "Icons|*.ico", ".ico"}},
      {kSelectDirectoryEditor, {"Select Directory", "old"}},
  };
  ScriptedServices services;
  NullHost host;
  TSampleAction action(host);
  for (const auto& wanted : cases) {
    const auto editor = wanted.editor.Create(action, *action.FindProperty("Text"));
    action.Text = "old";
    services.answer.reset();
    EXPECT_FALSE(editor->Edit()) << wanted.editor.className;
    EXPECT_EQ(action.Text, "old");
    EXPECT_EQ(services.asked, wanted.asked);
    services.answer = "new";
    EXPECT_TRUE(editor->Edit());
    EXPECT_EQ(action.Text, "new");
  }
}

TEST(PropertyEditors, ShowAndStoreTheValueAsText) {
  NullHost host;
  TSampleAction action(host);
  TPropertyEditor editor(action, *action.FindProperty("Mode"));
  EXPECT_EQ(editor.GetValue(), "smSecond");
  editor.SetValue("smthird");
  EXPECT_EQ(action.Mode, TSampleMode::smThird);
  EXPECT_THROW(editor.SetValue("smFourth"), EVekError);
  EXPECT_FALSE(editor.Edit());
}

/// Works on more of its action than its property.
struct TNumberEditor final : TPropertyEditor {
  using TPropertyEditor::TPropertyEditor;
  std::string GetValue() const override {
    return std::string(Property().name) + " of " + static_cast<TSampleAction&>(Action()).Text;
  }
};

TEST(PropertyEditors, KnowTheirActionAndProperty) {
  constexpr EditorClass kNumberEditor = EditorClassOf<TNumberEditor>("TNumberEditor");
  NullHost host;
  TSampleAction action(host);
  EXPECT_EQ(kNumberEditor.Create(action, *action.FindProperty("Number"))->GetValue(), "Number of default");
}

}  // namespace
