#include "platform/posix/registry/PosixRegistry.h"

#include <optional>

#include "platform/RegistryFormat.h"

namespace {

constexpr bool MayWrite(uint32_t access) { return (access & RegistryAccess::SetValue) != 0; }

std::string KeyLine(std::string_view path) { return '[' + std::string(path) + ']'; }

class PosixRegistryKey final : public RegistryKey {
 public:
  PosixRegistryKey(RegistryStore& store, std::string path, uint32_t access)
      : store_(store), path_(std::move(path)), access_(access) {}

  SysResult Read(std::string_view name, RegistryValue& value) override {
    std::optional<std::string> text;
    const SysResult looked = store_.Look([&](const RegistryText& all) { text = all.Find(path_, name); });
    if (!looked) return looked;
    if (!text) return SysResult::Failure(Win32Error::FileNotFound);
    auto decoded = DecodeRegistryValue(*text);
    if (!decoded) return SysResult::Failure(Win32Error::InvalidData);  // a kind that is only kept
    value = std::move(*decoded);
    return {};
  }

  SysResult Write(std::string_view name, const RegistryValue& value) override {
    const bool isText = value.type == RegistryType::String || value.type == RegistryType::ExpandString;
    if (!IsRegistryName(name) || (isText && !IsUtf8(value.data))) {
      return SysResult::Failure(Win32Error::InvalidParameter);
    }
    return Change(name, EncodeRegistryValue(value));
  }

  SysResult Delete(std::string_view name) override {
    bool exists = false;
    const auto look = [&](const RegistryText& all) { exists = all.Find(path_, name).has_value(); };
    if (const SysResult looked = store_.Look(look); !looked) return looked;
    return exists ? Change(name, "-") : SysResult::Failure(Win32Error::FileNotFound);
  }

  SysResult SubKeys(StringList& names) override {
    return store_.Look([&](const RegistryText& all) { names = all.SubKeys(path_); });
  }

  SysResult Values(StringList& names) override {
    return store_.Look([&](const RegistryText& all) { names = all.Values(path_); });
  }

 private:
  SysResult Change(std::string_view name, std::string_view value) {
    if (!MayWrite(access_)) return SysResult::Failure(Win32Error::AccessDenied);
    return store_.Change(KeyLine(path_) + '\n' + EncodeRegistryName(name) + '=' + std::string(value));
  }

  RegistryStore& store_;
  const std::string path_;
  const uint32_t access_;
};

}  // namespace

SysResult PosixRegistry::Open(uint32_t root, std::string_view path, uint32_t access, RegistryOpen mode,
                              std::unique_ptr<RegistryKey>& key) {
  std::string whole(RegistryRootName(root));
  if (whole.empty()) return SysResult::Failure(Win32Error::InvalidHandle);
  if (!IsRegistryName(path)) return SysResult::Failure(Win32Error::InvalidParameter);
  if (const std::string below = RegistryPath(path); !below.empty()) whole += '\\' + below;
  bool exists = false;
  const auto look = [&](const RegistryText& all) { exists = all.HasKey(whole); };
  if (const SysResult looked = store_.Look(look); !looked) return looked;
  if (!exists && mode == RegistryOpen::Existing) return SysResult::Failure(Win32Error::FileNotFound);
  if (MayWrite(access) && store_.IsReadOnly()) return SysResult::Failure(Win32Error::AccessDenied);
  if (!exists) {
    if (const SysResult made = store_.Change(KeyLine(whole)); !made) return made;
  }
  key = std::make_unique<PosixRegistryKey>(store_, std::move(whole), access);
  return {};
}
