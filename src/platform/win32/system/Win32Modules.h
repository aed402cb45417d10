#pragma once

#include "platform/Modules.h"

class Win32Modules final : public Modules {
 public:
  std::unique_ptr<LoadedModule> Load(std::string_view path, std::string& error) override;
  std::string FileName(std::string_view baseName) override;
};
