#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "coreapi/Vekactionapi.h"
#include "forms/Vekedits.h"
#include "vekforms_export.h"

/// How a property is edited.
enum class TPropertyAttribute { paValueList = 2, paDialog = 8 };

/// Edits one property of one action, in a dialog of its own or from a list of values.
/// [user-interface thread]
class VEK_FORMS_API TPropertyEditor {
 public:
  TPropertyEditor(TVekAction& action, const PropertyRow& property) : action_(action), property_(property) {}
  virtual ~TPropertyEditor();
  TPropertyEditor(const TPropertyEditor&) = delete;
  TPropertyEditor& operator=(const TPropertyEditor&) = delete;

  virtual TPropertyAttribute GetAttribute() const { return TPropertyAttribute::paDialog; }

  /// The displayed value; for most properties the text that a project holds.
  virtual std::string GetValue() const;

  /// Stores what the user typed or chose; raises EVekError for a text that is no value of the property.
  virtual void SetValue(std::string_view text);

  /// Runs the dialog; false when the user cancels or there is no dialog.
  virtual bool Edit();

  /// What a value list offers; any other text may be typed.
  virtual StringList GetValues() const;

 protected:
  TVekAction& Action() const { return action_; }
  const PropertyRow& Property() const { return property_; }

 private:
  TVekAction& action_;
  const PropertyRow& property_;
};

/// A class of editors as the host knows it.
struct EditorClass {
  std::string_view className;
  std::unique_ptr<TPropertyEditor> (*create)(const FileDialog&, TVekAction&, const PropertyRow&);
  FileDialog dialog = {};  // of editors that run a chooser

  std::unique_ptr<TPropertyEditor> Create(TVekAction& action, const PropertyRow& property) const {
    return create(dialog, action, property);
  }
};

/// Chooses one of the project's variables; there are none to choose from where the host has no designer.
class VEK_FORMS_API TVariableNameEditor : public TPropertyEditor {
 public:
  using TPropertyEditor::TPropertyEditor;
  ~TVariableNameEditor() override;
  TPropertyAttribute GetAttribute() const override { return TPropertyAttribute::paValueList; }
  StringList GetValues() const override { return VariableNames(); }

  static StringList VariableNames();
};

/// Chooses a file.
class VEK_FORMS_API TFileNameEdit : public TPropertyEditor {
 public:
  TFileNameEdit(const FileDialog& dialog, TVekAction& action, const PropertyRow& property)
      : TPropertyEditor(action, property), dialog_(dialog) {}
  ~TFileNameEdit() override;
  bool Edit() override;

  virtual std::string_view GetDefaultExtension() const { return dialog_.defaultExtension; }
  virtual std::string_view GetFilter() const { return dialog_.filter; }
  virtual std::string_view GetTitle() const { return dialog_.title; }

 private:
  const FileDialog dialog_;
};

/// Chooses a folder.
class VEK_FORMS_API TSelectDirectoryEditor : public TPropertyEditor {
 public:
  TSelectDirectoryEditor(const FileDialog& dialog, TVekAction& action, const PropertyRow& property)
      : TPropertyEditor(action, property), title_(dialog.title) {}
  ~TSelectDirectoryEditor() override;
  bool Edit() override;

  virtual std::string_view GetTitle() const { return title_; }

 private:
  const std::string_view title_;
};

/// An editor class of one's own, or, with other texts or another name, one of those above:
///   inline constexpr EditorClass kIconEdit =
///       EditorClassOf<TFileNameEdit>("TIconEdit", {"Select Icon", "Icons (*.ico)|*.ico", ".ico"});
template <class T>
consteval EditorClass EditorClassOf(std::string_view className, FileDialog dialog = {}) {
  return {className,
          [](const FileDialog& shown, TVekAction& action,
             const PropertyRow& property) -> std::unique_ptr<TPropertyEditor> {
            if constexpr (std::is_constructible_v<T, const FileDialog&, TVekAction&, const PropertyRow&>) {
              return std::make_unique<T>(shown, action, property);
            } else {
              return std::make_unique<T>(action, property);
            }
          },
          dialog};
}

inline constexpr EditorClass kFileNameEdit =
    EditorClassOf<TFileNameEdit>("TFileNameEdit", {"Select File", "All Files (*.*)|*.*", "*.*"});
inline constexpr EditorClass kSelectDirectoryEditor =
    EditorClassOf<TSelectDirectoryEditor>("TSelectDirectoryEditor", {"Select Directory"});
