#pragma once

#include "platform/Finder.h"

class Win32Finder final : public Finder {
 public:
  std::unique_ptr<FindSearch> Open(std::string_view spec, uint32_t mask, FindDetail detail,
                                   SysResult& result) override;
};
