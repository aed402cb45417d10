#pragma once

#include "forms/Vekpluginapi.h"
#include "process/VekCloseProcessAction.h"

/// The limit can be edited while there is one.
class TCloseProcessFrame final : public TActionFrame<TVekCloseProcessAction> {
 public:
  static constexpr std::string_view kClassName = "TCloseProcessFrame";
  TCloseProcessFrame();
  void ReadActionData(TVekAction& action) override;

 private:
  TCheckBox* timeout_ = nullptr;
  TEdit* limit_ = nullptr;
};
