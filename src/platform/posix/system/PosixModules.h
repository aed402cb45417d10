#pragma once

#include "platform/Modules.h"
#include "platform/posix/paths/PosixPaths.h"

class PosixModules final : public Modules {
 public:
  explicit PosixModules(PosixPaths& paths) : paths_(paths) {}

  std::unique_ptr<LoadedModule> Load(std::string_view path, std::string& error) override;
  std::string FileName(std::string_view baseName) override { return std::string(baseName) + ".so"; }

 private:
  PosixPaths& paths_;
};
