#pragma once

#include "forms/Vekpluginapi.h"
#include "interaction/VekBeepAction.h"

class TfrmBeep final : public TActionFrame<TBeepAction> {
 public:
  static constexpr std::string_view kClassName = "TfrmBeep";
  TfrmBeep();
};
