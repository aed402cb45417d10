#pragma once

#include "platform/Registry.h"
#include "platform/posix/registry/RegistryStore.h"

/// The registry as a store in a text file. Its roots have nothing in common: what stands below one is not
/// seen below another.
class PosixRegistry final : public Registry {
 public:
  PosixRegistry(PosixPaths& paths, PosixFolders& folders, std::function<std::string()> file)
      : store_(paths, folders, std::move(file)) {}

  SysResult Open(uint32_t root, std::string_view path, uint32_t access, RegistryOpen mode,
                 std::unique_ptr<RegistryKey>& key) override;
  std::string Damage() override { return store_.Damage(); }

 private:
  RegistryStore store_;
};
