#pragma once

#include "forms/Vekpluginapi.h"
#include "iterators/Vekfileiterator.h"

class TFileIteratorFrame final : public TActionFrame<TFileIterator> {
 public:
  static constexpr std::string_view kClassName = "TFileIteratorFrame";
  TFileIteratorFrame();
  void ReadActionData(TVekAction& action) override;

 private:
  void EnableMode();

  TRadioButton& fileSet_;
};
