#pragma once

#include "fileops/BActions1.h"
#include "forms/Vekpluginapi.h"

class TDeleteDirFrame final : public TActionFrame<TDeleteDirectoryAction> {
 public:
  static constexpr std::string_view kClassName = "TDeleteDirFrame";
  TDeleteDirFrame();
};
