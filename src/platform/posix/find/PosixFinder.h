#pragma once

#include "platform/Finder.h"
#include "platform/posix/paths/PosixPaths.h"

class PosixFinder final : public Finder {
 public:
  explicit PosixFinder(PosixPaths& paths) : paths_(paths) {}

  std::unique_ptr<FindSearch> Open(std::string_view spec, uint32_t mask, FindDetail detail,
                                   SysResult& result) override;

 private:
  PosixPaths& paths_;
};
