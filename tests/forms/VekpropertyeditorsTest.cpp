#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "forms/Vekpropertyeditors.h"
#include "support/ScriptedServices.h"

using testing::ElementsAre;

namespace {

struct TIconEdit final : TFileNameEdit {
  static constexpr std::string_view kClassName = "TIconEdit";
  std::string_view GetDefaultExtension() const override { return ".ico"; }
  std::string_view GetFilter() const override { return "Icons|*.ico"; }
  std::string_view GetTitle() const override { return "Icon"; }
};

TEST(PropertyEditors, RunTheirDialogOnTheText) {
  const struct {
    const EditorClass& editor;
    StringList asked;
  } cases[] = {
      {kEditorClass<TFileNameEdit>, {"Select File", "old", "All Files (*.*)|*.*", "*.*"}},
      {kEditorClass<TIconEdit>, {"Icon", "old", "Icons|*.ico", ".ico"}},
      {kEditorClass<TSelectDirectoryEditor>, {"Select Directory", "old"}},
  };
  ScriptedServices services;
  for (const auto& wanted : cases) {
    const auto editor = wanted.editor.create();
    std::string text = "old";
    services.answer.reset();
    EXPECT_FALSE(editor->Edit(text)) << wanted.editor.className;
    EXPECT_EQ(text, "old");
    EXPECT_EQ(services.asked, wanted.asked);
    services.answer = "new";
    EXPECT_TRUE(editor->Edit(text));
    EXPECT_EQ(text, "new");
  }
}

}  // namespace
