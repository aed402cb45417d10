#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekTextFind.h"

class TTextFindFrame final : public TActionFrame<TVekTextFindAction> {
 public:
  static constexpr std::string_view kClassName = "TTextFindFrame";
  TTextFindFrame();
  void ReadActionData(TVekAction& action) override;

 private:
  void EnableControls();

  TCheckBox* matchRegExpr_ = nullptr;
  TRadioButton* useVariable_ = nullptr;
};
