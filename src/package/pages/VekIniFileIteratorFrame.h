#pragma once

#include "forms/Vekpluginapi.h"
#include "iterators/VekIniFileIteratorAction.h"

class TIniFileIteratorFrame final : public TActionFrame<TIniFileIterator> {
 public:
  static constexpr std::string_view kClassName = "TIniFileIteratorFrame";
  TIniFileIteratorFrame();
  void InitPage(TVekAction& action) override;
  void ReadActionData(TVekAction& action) override;

 private:
  void EnableMode();

  TRadioButton* sections_ = nullptr;
  TComboBox* sectionsVar_ = nullptr;
  TEdit* sectionName_ = nullptr;
  TComboBox* nameVariable_ = nullptr;
  TComboBox* valueVariable_ = nullptr;
};
