#pragma once

#include "forms/Vekpropertyeditors.h"

/// Chooses an INI file.
class TIniFileNameEdit final : public TFileNameEdit {
 public:
  static constexpr std::string_view kClassName = "TIniFileNameEdit";
  std::string_view GetDefaultExtension() const override;
  std::string_view GetFilter() const override;
  std::string_view GetTitle() const override;
};

/// Chooses the variable that a value is read into.
class TIniVariableEditor final : public TVariableNameEditor {
 public:
  static constexpr std::string_view kClassName = "TIniVariableEditor";
};
