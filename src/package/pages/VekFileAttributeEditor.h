#pragma once

#include "forms/Vekpropertyeditors.h"

/// What a user reads for each TAttributeSetting, by ordinal.
inline constexpr std::string_view kAttributeSettingTexts[] = {"Don't Touch", "Set", "Clear"};

/// Chooses what to do to an attribute.
class TFileAttributeEditor final : public TPropertyEditor {
 public:
  using TPropertyEditor::TPropertyEditor;
  TPropertyAttribute GetAttribute() const override { return TPropertyAttribute::paValueList; }
  StringList GetValues() const override;
  std::string GetValue() const override;
  void SetValue(std::string_view text) override;
};

inline constexpr EditorClass kFileAttributeEditor =
    EditorClassOf<TFileAttributeEditor>("TFileAttributeEditor");
