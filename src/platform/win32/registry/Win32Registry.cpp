#include "platform/win32/registry/Win32Registry.h"

#include "platform/RegistryFormat.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32Text.h"

namespace {

// The longest name of a key, and of a value.
constexpr DWORD kMostKeyName = 255;
constexpr DWORD kMostValueName = 16383;

SysResult ResultOfStatus(LSTATUS status) {
  return status == ERROR_SUCCESS ? SysResult() : SysResult::Failure(static_cast<Win32Error>(status));
}

HKEY RootHandle(uint32_t root) {
  // Sign-extended, as the system's own constants are.
  return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(root)));
}

/// Asks with the numbers from 0 on until there are no more.
template <class Ask>
SysResult Names(DWORD most, StringList& names, Ask ask) {
  names.clear();
  std::wstring name(most + 1, L'\0');
  for (DWORD index = 0;; ++index) {
    DWORD length = most + 1;
    const LSTATUS status = ask(index, name.data(), &length);
    if (status == ERROR_NO_MORE_ITEMS) return {};
    if (status != ERROR_SUCCESS) return ResultOfStatus(status);
    names.push_back(FromWide(std::wstring_view(name).substr(0, length)));
  }
}

class Win32RegistryKey final : public RegistryKey {
 public:
  explicit Win32RegistryKey(HKEY key) : key_(key) {}
  ~Win32RegistryKey() override { RegCloseKey(key_); }
  Win32RegistryKey(const Win32RegistryKey&) = delete;
  Win32RegistryKey& operator=(const Win32RegistryKey&) = delete;

  SysResult Read(std::string_view name, RegistryValue& value) override {
    const auto wide = ToWide(name);
    if (!wide) return SysResult::Failure(Win32Error::InvalidParameter);
    std::string bytes(256, '\0');
    for (;;) {
      DWORD type = 0, size = static_cast<DWORD>(bytes.size());
      const LSTATUS status =
          RegQueryValueExW(key_, wide->c_str(), nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &size);
      bytes.resize(size);
      if (status == ERROR_MORE_DATA) continue;
      if (status == ERROR_SUCCESS) value = RegistryValueOf(static_cast<RegistryType>(type), std::move(bytes));
      return ResultOfStatus(status);
    }
  }

  SysResult Write(std::string_view name, const RegistryValue& value) override {
    const auto wide = ToWide(name);
    const bool isText = value.type == RegistryType::String || value.type == RegistryType::ExpandString;
    if (!wide || (isText && !ToWide(value.data))) return SysResult::Failure(Win32Error::InvalidParameter);
    const std::string bytes = RegistryBytes(value);
    return ResultOfStatus(RegSetValueExW(key_, wide->c_str(), 0, static_cast<DWORD>(value.type),
                                         reinterpret_cast<const BYTE*>(bytes.data()),
                                         static_cast<DWORD>(bytes.size())));
  }

  SysResult Delete(std::string_view name) override {
    const auto wide = ToWide(name);
    if (!wide) return SysResult::Failure(Win32Error::InvalidParameter);
    return ResultOfStatus(RegDeleteValueW(key_, wide->c_str()));
  }

  SysResult SubKeys(StringList& names) override {
    return Names(kMostKeyName, names, [this](DWORD index, wchar_t* name, DWORD* length) {
      return RegEnumKeyExW(key_, index, name, length, nullptr, nullptr, nullptr, nullptr);
    });
  }

  SysResult Values(StringList& names) override {
    return Names(kMostValueName, names, [this](DWORD index, wchar_t* name, DWORD* length) {
      return RegEnumValueW(key_, index, name, length, nullptr, nullptr, nullptr, nullptr);
    });
  }

 private:
  HKEY key_;
};

}  // namespace

SysResult Win32Registry::Open(uint32_t root, std::string_view path, uint32_t access, RegistryOpen mode,
                              std::unique_ptr<RegistryKey>& key) {
  if (RegistryRootName(root).empty()) return SysResult::Failure(Win32Error::InvalidHandle);
  const auto wide = ToWide(RegistryPath(path));
  if (!wide) return SysResult::Failure(Win32Error::InvalidParameter);
  HKEY opened = nullptr;
  const LSTATUS status =
      mode == RegistryOpen::CreateMissing
          ? RegCreateKeyExW(RootHandle(root), wide->c_str(), 0, nullptr, 0, access, nullptr, &opened, nullptr)
          : RegOpenKeyExW(RootHandle(root), wide->c_str(), 0, access, &opened);
  if (status == ERROR_SUCCESS) key = std::make_unique<Win32RegistryKey>(opened);
  return ResultOfStatus(status);
}
