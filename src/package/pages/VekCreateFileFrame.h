#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekCreateTextFileAction.h"

class TCreateFileFrame final : public TActionFrame<TVekCreateTextFileAction> {
 public:
  static constexpr std::string_view kClassName = "TCreateFileFrame";
  TCreateFileFrame();
};
