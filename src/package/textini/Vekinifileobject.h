#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IniFiles.h"

struct Platform;

/// One INI file with typed values. What the system refuses is raised as EVekError with the system's text.
class TIniFile {
 public:
  /// The file need not exist.
  TIniFile(const Platform& platform, std::string_view path) : platform_(platform), path_(path) {}

  // The fallback is answered for a missing entry, and for one whose text is no number.
  std::string ReadString(std::string_view section, std::string_view key, std::string_view fallback) const;
  int32_t ReadInteger(std::string_view section, std::string_view key, int32_t fallback) const;
  bool ReadBool(std::string_view section, std::string_view key, bool fallback) const;  // 0 is false

  void WriteString(std::string_view section, std::string_view key, std::string_view value) const;
  void WriteInteger(std::string_view section, std::string_view key, int32_t value) const;
  void WriteBool(std::string_view section, std::string_view key, bool value) const;  // as 1 or 0

  // A whole section at once: the file is read once, or changed once.
  std::vector<IniEntry> ReadSection(std::string_view section) const;
  void WriteSection(std::string_view section, std::span<const IniEntry> entries, OtherLines others) const;

 private:
  void Check(const SysResult& result) const;

  const Platform& platform_;
  const std::string path_;
};
