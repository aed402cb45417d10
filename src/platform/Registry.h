#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "base/Win32Error.h"

/// Kinds of values as Windows numbers them; there are others.
enum class RegistryType : uint32_t {
  None = 0,
  String = 1,
  ExpandString = 2,
  Binary = 3,
  DWord = 4,
  MultiString = 7,
  QWord = 11,
};

struct RegistryValue {
  RegistryType type = RegistryType::None;
  /// The text of String and ExpandString, in UTF-8 and up to its first zero; of every other kind the bytes as
  /// Windows lays them out.
  std::string data;

  bool operator==(const RegistryValue&) const = default;
};

/// The predefined keys.
namespace RegistryRoot {
inline constexpr uint32_t ClassesRoot = 0x80000000;
inline constexpr uint32_t CurrentUser = 0x80000001;
inline constexpr uint32_t LocalMachine = 0x80000002;
inline constexpr uint32_t Users = 0x80000003;
inline constexpr uint32_t CurrentConfig = 0x80000005;
}  // namespace RegistryRoot

struct RegistryRootRow {
  uint32_t root;
  std::string_view name;
};
inline constexpr RegistryRootRow kRegistryRoots[] = {
    {RegistryRoot::ClassesRoot, "HKEY_CLASSES_ROOT"},     {RegistryRoot::CurrentUser, "HKEY_CURRENT_USER"},
    {RegistryRoot::LocalMachine, "HKEY_LOCAL_MACHINE"},   {RegistryRoot::Users, "HKEY_USERS"},
    {RegistryRoot::CurrentConfig, "HKEY_CURRENT_CONFIG"},
};

/// Access masks as Windows defines them.
namespace RegistryAccess {
inline constexpr uint32_t SetValue = 0x0002;
inline constexpr uint32_t Read = 0x20019;
inline constexpr uint32_t All = 0xF003F;
}  // namespace RegistryAccess

enum class RegistryOpen { Existing, CreateMissing };

/// An open key. Names compare without regard to case; the empty name is that of the key's default value.
class RegistryKey {
 public:
  virtual ~RegistryKey() = default;

  /// FileNotFound when the key has no such value.
  virtual SysResult Read(std::string_view name, RegistryValue& value) = 0;

  /// The value is on disk when this returns. What is not UTF-8 is no text: InvalidParameter.
  virtual SysResult Write(std::string_view name, const RegistryValue& value) = 0;
  virtual SysResult Delete(std::string_view name) = 0;

  /// Reports the names of the keys directly below, and of the values.
  virtual SysResult SubKeys(StringList& names) = 0;
  virtual SysResult Values(StringList& names) = 0;
};

/// The registry: Windows' own, or on other systems a store in a text file. [any thread]
class Registry {
 public:
  virtual ~Registry() = default;

  /// Opens a key by the names that lead to it from the root, with "\" between them; an empty path is the
  /// root. FileNotFound when the key is missing and not to be created, InvalidHandle for an unknown root,
  /// AccessDenied where the access is not to be had.
  virtual SysResult Open(uint32_t root, std::string_view path, uint32_t access, RegistryOpen mode,
                         std::unique_ptr<RegistryKey>& key) = 0;

  /// After BadRegistry: which file is damaged, where and how.
  virtual std::string Damage() = 0;
};
