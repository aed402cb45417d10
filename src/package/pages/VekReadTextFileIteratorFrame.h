#pragma once

#include "forms/Vekpluginapi.h"
#include "iterators/VekReadTextFileIteratorAction.h"

class TReadTextFileIteratorFrame final : public TActionFrame<TReadTextFileIterator> {
 public:
  static constexpr std::string_view kClassName = "TReadTextFileIteratorFrame";
  TReadTextFileIteratorFrame();
};
