#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekReadTextFileAction.h"

class TReadFileFrame final : public TActionFrame<TVekReadTextFileAction> {
 public:
  static constexpr std::string_view kClassName = "TReadFileFrame";
  TReadFileFrame();
};
