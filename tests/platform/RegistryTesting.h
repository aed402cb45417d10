#pragma once

#include "base/WindowsPath.h"
#include "platform/PlatformTest.h"
#include "platform/Registry.h"

/// A key of the test's own below the current user's; the store is a file of the test's folder where the
/// system has no registry.
class RegistryTestBase : public PlatformTest {
 protected:
  ~RegistryTestBase() override { RemoveRegistryKey(kTestKey); }

  SysResult Open(std::string_view path, uint32_t access, RegistryOpen mode,
                 std::unique_ptr<RegistryKey>& key) {
    return registry.Open(RegistryRoot::CurrentUser, path, access, mode, key);
  }

  /// The key, made where it is missing.
  std::unique_ptr<RegistryKey> TestKey(std::string_view below = "", uint32_t access = RegistryAccess::All) {
    std::unique_ptr<RegistryKey> key;
    const std::string path = kTestKey + std::string(below);
    EXPECT_TRUE(Open(path, access, RegistryOpen::CreateMissing, key)) << path;
    return key;
  }

  static std::string TextOf(RegistryKey& key, std::string_view name) {
    RegistryValue value;
    return key.Read(name, value) ? value.data : "<none>";
  }

  // Named after the folder, which no other test has.
  const std::string kTestKey = "Software\\VekTest-" + std::string(NamePart(folder.Path()));
  Registry& registry = *owner->Get().registry;
};
