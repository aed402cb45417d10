#pragma once

#include "fileops/VekTouchFile.h"
#include "forms/Vekpluginapi.h"

class TTouchFrame final : public TActionFrame<TTouchFilesAction> {
 public:
  static constexpr std::string_view kClassName = "TTouchFrame";
  TTouchFrame();
};
