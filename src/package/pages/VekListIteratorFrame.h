#pragma once

#include "forms/Vekpluginapi.h"
#include "iterators/VekListIteratorActoin.h"

class TListIteratorFrame final : public TActionFrame<TVekListIterator> {
 public:
  static constexpr std::string_view kClassName = "TListIteratorFrame";
  TListIteratorFrame();
};
