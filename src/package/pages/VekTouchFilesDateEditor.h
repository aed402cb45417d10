#pragma once

#include "fileops/VekTouchFile.h"
#include "forms/Vekpluginapi.h"
#include "forms/Vekpropertyeditors.h"

/// The dialog behind it: date and time in pickers of their own.
class TTouchFileEditForm final : public TActionFrame<TTouchFilesAction> {
 public:
  TTouchFileEditForm();
  void ReadActionData(TVekAction& action) override;
  void WriteActionData(TVekAction& action) override;

 private:
  TEdit& date_;
  TEdit& time_;
};

/// Edits what files are touched with, in a dialog; typing has no effect.
class TTouchFilesDateEditor final : public TPropertyEditor {
 public:
  using TPropertyEditor::TPropertyEditor;
  std::string GetValue() const override;
  void SetValue(std::string_view /*text*/) override {}
  bool Edit() override;
};

inline constexpr EditorClass kTouchFilesDateEditor =
    EditorClassOf<TTouchFilesDateEditor>("TTouchFilesDateEditor");
