#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "vekforms_export.h"

/// Edits a property in a dialog of its own. [user-interface thread]
class VEK_FORMS_API TPropertyEditor {
 public:
  virtual ~TPropertyEditor();

  /// Runs the dialog on the property's text; false and the text as it was when the user cancels.
  virtual bool Edit(std::string& text) = 0;
};

/// Chooses a file; an action's own editor says which ones.
class VEK_FORMS_API TFileNameEdit : public TPropertyEditor {
 public:
  static constexpr std::string_view kClassName = "TFileNameEdit";
  ~TFileNameEdit() override;
  bool Edit(std::string& text) override;

  virtual std::string_view GetDefaultExtension() const { return "*.*"; }
  virtual std::string_view GetFilter() const { return "All Files (*.*)|*.*"; }
  virtual std::string_view GetTitle() const { return "Select File"; }
};

/// Chooses a folder.
class VEK_FORMS_API TSelectDirectoryEditor : public TPropertyEditor {
 public:
  static constexpr std::string_view kClassName = "TSelectDirectoryEditor";
  ~TSelectDirectoryEditor() override;
  bool Edit(std::string& text) override;

  virtual std::string_view GetTitle() const { return "Select Directory"; }
};

/// A class of editors as the host knows it.
struct EditorClass {
  std::string_view className;
  std::unique_ptr<TPropertyEditor> (*create)();
};

/// The class of `Editor`, which declares `kClassName`.
template <class Editor>
inline constexpr EditorClass kEditorClass{
    Editor::kClassName, []() -> std::unique_ptr<TPropertyEditor> { return std::make_unique<Editor>(); }};
