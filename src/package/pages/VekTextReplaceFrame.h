#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/VekTextReplaceAction.h"

class TfrmTextReplace final : public TActionFrame<TTextReplaceAction> {
 public:
  static constexpr std::string_view kClassName = "TfrmTextReplace";
  TfrmTextReplace();
  void ReadActionData(TVekAction& action) override;

 private:
  void EnableControls();

  TCheckBox* replaceText_ = nullptr;
  TCheckBox* matchExpression_ = nullptr;
  TCheckBox* failOnFew_ = nullptr;
};
