#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "vekforms_export.h"

/// How a property is edited.
enum class TPropertyAttribute { paDialog, paValueList };

/// Edits a property in a dialog of its own, or offers texts to choose from. [user-interface thread]
class VEK_FORMS_API TPropertyEditor {
 public:
  virtual ~TPropertyEditor();

  virtual TPropertyAttribute GetAttribute() const { return TPropertyAttribute::paDialog; }

  /// Runs the dialog on the property's text; false and the text as it was when the user cancels or there is
  /// no dialog.
  virtual bool Edit(std::string& text);

  /// What a value list offers; any other text may be typed.
  virtual StringList GetValues() const;
};

/// Chooses one of the project's variables; there are none to choose from where the host has no designer.
class VEK_FORMS_API TVariableNameEditor : public TPropertyEditor {
 public:
  ~TVariableNameEditor() override;
  TPropertyAttribute GetAttribute() const override { return TPropertyAttribute::paValueList; }
  StringList GetValues() const override;
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
