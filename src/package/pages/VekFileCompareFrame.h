#pragma once

#include "fileops/VekFileCompare.h"
#include "forms/Vekpluginapi.h"

class TFileCompareFrame final : public TActionFrame<TVekFileCompareAction> {
 public:
  static constexpr std::string_view kClassName = "TFileCompareFrame";
  TFileCompareFrame();
};
