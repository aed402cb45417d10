#include "textini/Vekinifileobject.h"

#include <charconv>
#include <optional>

#include "coreapi/Vekerrors.h"
#include "platform/ErrorTexts.h"
#include "platform/IniFiles.h"
#include "platform/Platform.h"
#include "textini/Vekconversions.h"

void TIniFile::Check(const SysResult& result) const {
  if (!result) throw EVekError(platform_.errorTexts->Text(result.code));
}

std::string TIniFile::ReadString(std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
  std::optional<std::string> value;
  Check(platform_.iniFiles->Read(path_, section, key, value));
  return value ? std::move(*value) : std::string(fallback);
}

int32_t TIniFile::ReadInteger(std::string_view section, std::string_view key, int32_t fallback) const {
  return StringToInteger(ReadString(section, key, "")).value_or(fallback);
}

bool TIniFile::ReadBool(std::string_view section, std::string_view key, bool fallback) const {
  const std::string text = ReadString(section, key, "");
  double number = 0;
  const char* end = text.data() + text.size();
  const bool isNumber = std::from_chars(text.data(), end, number).ptr == end && !text.empty();
  return isNumber ? number != 0 : ReadInteger(section, key, fallback ? 1 : 0) != 0;
}

void TIniFile::WriteString(std::string_view section, std::string_view key, std::string_view value) const {
  Check(platform_.iniFiles->Write(path_, section, key, value));
}

void TIniFile::WriteInteger(std::string_view section, std::string_view key, int32_t value) const {
  WriteString(section, key, std::to_string(value));
}

void TIniFile::WriteBool(std::string_view section, std::string_view key, bool value) const {
  WriteString(section, key, value ? "1" : "0");
}

std::vector<IniEntry> TIniFile::ReadSection(std::string_view section) const {
  std::vector<IniEntry> entries;
  Check(platform_.iniFiles->ReadEntries(path_, section, entries));
  return entries;
}

void TIniFile::WriteSection(std::string_view section, std::span<const IniEntry> entries,
                            OtherLines others) const {
  Check(platform_.iniFiles->WriteEntries(path_, section, entries, others));
}
