#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Registry.h"

/// The text that stands for keys and values in files of the registry editors, version 5.00.

inline constexpr std::string_view kRegistryHeader = "Windows Registry Editor Version 5.00";

/// "HKEY_LOCAL_MACHINE" and so on; empty for a number that is no root.
std::string_view RegistryRootName(uint32_t root);

/// The path with single separators, and none at its ends. Names hold every other character, "/" included.
std::string RegistryPath(std::string_view path);

/// What a file can hold as the name of a key or value: text without control characters.
bool IsRegistryName(std::string_view name);

/// What stands before "=" for a value.
std::string EncodeRegistryName(std::string_view name);

/// What stands behind it, in one line. Text with control characters has the form of bytes.
std::string EncodeRegistryValue(const RegistryValue& value);

/// Reads that, line breaks included; nothing for what has none of the forms.
std::optional<RegistryValue> DecodeRegistryValue(std::string_view text);

/// The text between quotes with its escapes resolved.
std::string UnescapeRegistryText(std::string_view text);

/// The value of a kind whose bytes are known: texts out of UTF-16, the rest as it is, and back.
RegistryValue RegistryValueOf(RegistryType type, std::string bytes);
std::string RegistryBytes(const RegistryValue& value);
