#pragma once

#include "fileops/VekMoveDirectoryAction.h"
#include "forms/Vekpluginapi.h"

class TMoveDirectoryFrame final : public TActionFrame<TVekMoveDirectoryAction> {
 public:
  static constexpr std::string_view kClassName = "TMoveDirectoryFrame";
  TMoveDirectoryFrame();
};
