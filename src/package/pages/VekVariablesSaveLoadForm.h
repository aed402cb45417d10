#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekVariablesSaveLoadAction.h"

/// The page that saving and loading share.
class TVariablesSaveLoadForm final : public TActionFrame<TVekVariablesSaveLoadAction> {
 public:
  static constexpr std::string_view kClassName = "TVariablesSaveLoadForm";
  TVariablesSaveLoadForm();
};
