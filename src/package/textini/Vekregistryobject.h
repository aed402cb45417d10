#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Win32Error.h"

class RegistryKey;
enum class RegistryType : uint32_t;
struct Platform;

/// One key of the registry with typed values. What the system refuses is raised as EVekError, which names the
/// value.
class TVekRegistry {
 public:
  TVekRegistry(const Platform& platform, uint32_t rootKey, uint32_t access);
  ~TVekRegistry();
  TVekRegistry(const TVekRegistry&) = delete;
  TVekRegistry& operator=(const TVekRegistry&) = delete;

  /// FileNotFound when the key is missing and not to be created; raises when the registry itself is damaged.
  /// The rest needs an open key.
  SysResult OpenKey(std::string_view path, bool canCreate);

  bool ValueExists(std::string_view name) const;
  SysResult DeleteValue(std::string_view name) const;

  // These raise for a value that is missing or of another type; the empty name is the default value's.
  std::string ReadString(std::string_view name) const;  // with references to the environment as they stand
  int32_t ReadInteger(std::string_view name) const;
  bool ReadBool(std::string_view name) const;  // 0 is false
  uint32_t ReadDWord(std::string_view name) const;

  void WriteString(std::string_view name, std::string_view value) const;
  void WriteBool(std::string_view name, bool value) const;  // as 1 or 0
  void WriteDWord(std::string_view name, uint32_t value) const;

 private:
  void Write(std::string_view name, RegistryType type, std::string data) const;
  void Check(const SysResult& result, std::string_view complaint, std::string_view name) const;

  const Platform& platform_;
  const uint32_t rootKey_, access_;
  std::unique_ptr<RegistryKey> key_;
};
