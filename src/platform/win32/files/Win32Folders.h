#pragma once

#include "platform/Folders.h"

class Win32Folders final : public Folders {
 public:
  bool Exists(std::string_view path) override;
  SysResult Create(std::string_view path) override;
  using Folders::CreateWithParents;
  SysResult CreateWithParents(std::string_view path, std::string_view source) override;
  SysResult Remove(std::string_view path) override;
  SysResult Empty(std::string_view path, const EmptyingOptions& options) override;
};
