#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekWriteToTextFileAction.h"

class TWriteToTextFileFrame final : public TActionFrame<TVekWriteToTextFileAction> {
 public:
  static constexpr std::string_view kClassName = "TWriteToTextFileFrame";
  TWriteToTextFileFrame();
};
