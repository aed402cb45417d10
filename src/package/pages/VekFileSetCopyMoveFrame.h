#pragma once

#include "fileops/VekFileSetCopyMove.h"
#include "forms/Vekpluginapi.h"

class TFileSetCopyMoveFrame final : public TActionFrame<TVekFileSetCopyMoveAction> {
 public:
  static constexpr std::string_view kClassName = "TFileSetCopyMoveFrame";
  TFileSetCopyMoveFrame();
};
