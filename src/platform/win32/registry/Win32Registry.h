#pragma once

#include "platform/Registry.h"

/// The system's registry, in the view that a program of this one's width has.
class Win32Registry final : public Registry {
 public:
  SysResult Open(uint32_t root, std::string_view path, uint32_t access, RegistryOpen mode,
                 std::unique_ptr<RegistryKey>& key) override;
  std::string Damage() override { return {}; }
};
