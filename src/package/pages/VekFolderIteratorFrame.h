#pragma once

#include "forms/Vekpluginapi.h"
#include "iterators/VekFolderIteratorAction.h"

class TFolderIteratorFrame final : public TActionFrame<TFolderIterator> {
 public:
  static constexpr std::string_view kClassName = "TFolderIteratorFrame";
  TFolderIteratorFrame();
};
