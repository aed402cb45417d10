#pragma once

#include "fileops/VekConcatFilesAction.h"
#include "forms/Vekpluginapi.h"

class TConcatFilesFrame final : public TActionFrame<TConcatAction> {
 public:
  static constexpr std::string_view kClassName = "TConcatFilesFrame";
  TConcatFilesFrame();
};
