#include "platform/ComClasses.h"
#include "platform/PlatformTest.h"
#include "platform/Registry.h"

namespace {

/// A class is described in one of three places of the registry, which is a file of the test's own.
struct PosixComClasses : PlatformTest {
  void Describe(uint32_t root, const std::string& path, RegistryType type, const std::string& value) {
    std::unique_ptr<RegistryKey> key;
    ASSERT_TRUE(platform.registry->Open(root, path, RegistryAccess::All, RegistryOpen::CreateMissing, key));
    ASSERT_TRUE(key->Write("", {type, value}));
  }

  const std::unique_ptr<PlatformOwner> own =
      CreatePlatform([](char) { return std::nullopt; }, [this] { return Path("registry.reg"); });
  const Platform& platform = own->Get();
  ComClasses& classes = *platform.comClasses;
};

TEST_F(PosixComClasses, AClassNeedsAServerThatExists) {
  using namespace RegistryRoot;
  folder.Write("My Server.dll");
  folder.Write("server.exe");
  const std::string dll = Path("My Server.dll"), exe = Path("server.exe");
  const struct {
    uint32_t root;
    std::string place, server, value;
    bool wanted;
  } cases[] = {
      {ClassesRoot, "", "InprocServer32", dll, true},
      {ClassesRoot, "", "LocalServer32", '"' + dll + "\" /automation", true},
      {CurrentUser, "Software\\Classes\\", "InprocServer32", exe, true},
      {LocalMachine, "Software\\Classes\\", "LocalServer32", exe + " /automation", true},
      {ClassesRoot, "", "InprocServer32", Path("missing.dll"), false},
      {ClassesRoot, "", "InprocServer32", folder.Path(), false},
      {ClassesRoot, "", "InprocServer32", "", false},
      {ClassesRoot, "", "InprocHandler32", dll, false},
  };
  int number = 100;
  for (const auto& [root, place, server, value, wanted] : cases) {
    const std::string id = "{00000000-0000-0000-0000-000000000" + std::to_string(++number) + "}";
    EXPECT_FALSE(classes.CanCreate(id));
    Describe(root, place + "CLSID\\" + id + '\\' + server, RegistryType::String, value);
    EXPECT_EQ(classes.CanCreate(id), wanted) << value;
  }
}

TEST_F(PosixComClasses, ANameLeadsToAClass) {
  EXPECT_FALSE(classes.ClassIdOf("Some.Class"));
  Describe(RegistryRoot::ClassesRoot, "Some.Class\\CLSID", RegistryType::String, "{id}");
  EXPECT_EQ(classes.ClassIdOf("some.class"), "{id}");
  Describe(RegistryRoot::CurrentUser, "Software\\Classes\\Some.Class\\CLSID", RegistryType::String, "{own}");
  EXPECT_EQ(classes.ClassIdOf("Some.Class"), "{own}");
  Describe(RegistryRoot::ClassesRoot, "Odd.Class\\CLSID", RegistryType::Binary, "{id}");
  EXPECT_FALSE(classes.ClassIdOf("Odd.Class"));
}

}  // namespace
