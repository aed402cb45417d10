#pragma once

#include "fileops/VekDeleteFilesAction.h"
#include "forms/Vekpluginapi.h"

class TDeleteFilesFrame final : public TActionFrame<TDeleteFilesAction> {
 public:
  static constexpr std::string_view kClassName = "TDeleteFilesFrame";
  TDeleteFilesFrame();
};
