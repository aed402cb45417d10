#pragma once

#include "forms/Vekpropertyeditors.h"

/// The file chooser of actions whose file specification may hold wildcards.
class TFileNameEditEx final : public TFileNameEdit {
 public:
  static constexpr std::string_view kClassName = "TFileNameEditEx";
  std::string_view GetDefaultExtension() const override;
  std::string_view GetFilter() const override;
  std::string_view GetTitle() const override;
};
