#include <map>

#include "gmock/gmock.h"

#include "platform/CreatePlatform.h"
#include "platform/Registry.h"
#include "process/VekRobocopyOptions.h"

using testing::ElementsAre;
using testing::Pair;

namespace {

/// A registry with one value at most.
class OneValue final : public Registry {
 public:
  std::optional<std::string> path;
  std::string opened;

  SysResult Open(uint32_t root, std::string_view name, uint32_t access, RegistryOpen mode,
                 std::unique_ptr<RegistryKey>& key) override {
    const bool reads = access == RegistryAccess::Read && mode == RegistryOpen::Existing;
    opened = (root == RegistryRoot::LocalMachine && reads ? "HKLM " : "? ") + std::string(name);
    if (!path) return SysResult::Failure(Win32Error::FileNotFound);
    key = std::make_unique<Key>(*path);
    return {};
  }
  std::string Damage() override { return {}; }

 private:
  class Key final : public RegistryKey {
   public:
    explicit Key(std::string path) : path_(std::move(path)) {}
    SysResult Read(std::string_view name, RegistryValue& value) override {
      if (name != "path" || path_.empty()) return SysResult::Failure(Win32Error::FileNotFound);
      value = {RegistryType::String, path_};
      return {};
    }
    SysResult Write(std::string_view, const RegistryValue&) override { return {}; }
    SysResult Delete(std::string_view) override { return {}; }
    SysResult SubKeys(StringList&) override { return {}; }
    SysResult Values(StringList&) override { return {}; }

   private:
    const std::string path_;
  };
};

struct Store final : IVekOptionsReader, IVekOptionsWriter {
  std::string ReadString(std::string_view key) const override { return key == "Location" ? stored : ""; }
  std::string SuggestedString(std::string_view key) const override {
    return key == "Location" ? suggested : "";
  }
  void WriteString(std::string_view key, std::string_view value) override {
    written.emplace_back(key, value);
  }

  std::string stored, suggested;
  std::vector<std::pair<std::string, std::string>> written;
};

struct RobocopyOptions : testing::Test {
  RobocopyOptions() { platform.registry = &registry; }

  OneValue registry;
  Store store;
  const std::unique_ptr<PlatformOwner> owner = CreatePlatform([](char) { return std::nullopt; });
  Platform platform = owner->Get();
  TVekRobocopyOptions options{platform};
};

TEST_F(RobocopyOptions, WhatIsStoredComesBeforeWhatIsFound) {
  const struct {
    std::string stored;
    std::optional<std::string> found;
    std::string suggested, wanted;
  } cases[] = {
      {"C:\\my.exe", "C:\\Kit", "/tools/r", "C:\\my.exe"},
      {"", "C:\\Kit", "/tools/r", "C:\\Kit\\robocopy.exe"},
      {"", "C:\\Kit\\", "", "C:\\Kit\\robocopy.exe"},
      {"", "", "/tools/r", "/tools/r"},
      {"", std::nullopt, "/tools/r", "/tools/r"},
      {"", std::nullopt, "", ""},
  };
  for (const auto& [stored, found, suggested, wanted] : cases) {
    store.stored = stored;
    store.suggested = suggested;
    registry.path = found;
    options.LoadOptions(store);
    EXPECT_EQ(options.RobocopyPath(), wanted);
  }
  EXPECT_EQ(registry.opened, "HKLM software\\?");
  EXPECT_FALSE(options.Modified());
}

TEST_F(RobocopyOptions, OnlyAChangeIsAModification) {
  options.SetRobocopyPath("");
  EXPECT_FALSE(options.Modified());
  options.SetRobocopyPath("x");
  EXPECT_TRUE(options.Modified());
  options.SaveOptions(store);
  EXPECT_THAT(store.written, ElementsAre(Pair("Location", "x")));
}

}  // namespace
