#pragma once

#include "fileops/VekFileAttrib.h"
#include "forms/Vekpluginapi.h"

class TFileAttributeFrame final : public TActionFrame<TSetFileAttributesAction> {
 public:
  static constexpr std::string_view kClassName = "TFileAttributeFrame";
  TFileAttributeFrame();
};
