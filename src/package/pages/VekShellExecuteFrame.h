#pragma once

#include "forms/Vekpluginapi.h"
#include "process/VekShellExecute.h"

class TVekShellExecuteFrame final : public TActionFrame<TVekShellExecute> {
 public:
  static constexpr std::string_view kClassName = "TVekShellExecuteFrame";
  TVekShellExecuteFrame();
};
