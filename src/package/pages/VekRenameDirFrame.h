#pragma once

#include "fileops/VekRenameDirectoryAction.h"
#include "forms/Vekpluginapi.h"

class TRenameDirFrame final : public TActionFrame<TRenameDirAction> {
 public:
  static constexpr std::string_view kClassName = "TRenameDirFrame";
  TRenameDirFrame();
};
