#pragma once

#include "fileops/BActions1.h"
#include "forms/Vekpluginapi.h"

class TCreateDirectoryFrame final : public TActionFrame<TCreateDirectoryAction> {
 public:
  static constexpr std::string_view kClassName = "TCreateDirectoryFrame";
  TCreateDirectoryFrame();
};
