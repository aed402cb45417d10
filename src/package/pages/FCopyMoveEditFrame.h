#pragma once

#include "fileops/VekCopyMove.h"
#include "forms/Vekpluginapi.h"

class TCopyFrame final : public TActionFrame<TCopyFilesAction> {
 public:
  static constexpr std::string_view kClassName = "TCopyFrame";
  TCopyFrame();
};

class TMoveFrame final : public TActionFrame<TMoveFilesAction> {
 public:
  static constexpr std::string_view kClassName = "TMoveFrame";
  TMoveFrame();
};
