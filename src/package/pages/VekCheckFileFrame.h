#pragma once

#include "fileops/BActions1.h"
#include "forms/Vekpluginapi.h"

class TCheckFileFrame final : public TActionFrame<TFileExistsAction> {
 public:
  static constexpr std::string_view kClassName = "TCheckFileFrame";
  TCheckFileFrame();
};
