#pragma once

#include <optional>

#include "forms/Vekpropertyeditors.h"

/// Shows a predefined key of the registry by its name; any other number is shown as nothing, and a text that
/// is no name changes nothing.
class TRegRootPropertyEditor final : public TPropertyEditor {
 public:
  using TPropertyEditor::TPropertyEditor;
  TPropertyAttribute GetAttribute() const override { return TPropertyAttribute::paValueList; }
  std::string GetValue() const override;
  void SetValue(std::string_view text) override;
  StringList GetValues() const override { return Names(); }

  static StringList Names();
  static std::string NameOf(uint32_t root);
  static std::optional<uint32_t> RootOf(std::string_view name);
};

inline constexpr EditorClass kRegRootEditor = EditorClassOf<TRegRootPropertyEditor>("TRegRootPropertyEditor");
