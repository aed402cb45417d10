#pragma once

#include "forms/Vekpluginapi.h"
#include "process/VekIFCOMClassRegistered.h"

class TVekIfCOMClassRegFrame final : public TActionFrame<TVekIfCOMClassRegistered> {
 public:
  static constexpr std::string_view kClassName = "TVekIfCOMClassRegFrame";
  TVekIfCOMClassRegFrame();
};
