#pragma once

#include <string>
#include <string_view>

#include "vekcoreapi_export.h"

/// Windows path syntax: both '\' and '/' separate, "X:" names a drive. Nothing here touches the disk.

constexpr bool IsPathDelimiter(char c) { return c == '\\' || c == '/'; }

/// A path that does is one of a folder, never of a file.
constexpr bool EndsInPathDelimiter(std::string_view path) {
  return !path.empty() && IsPathDelimiter(path.back());
}

/// Whether the path begins with a drive. A colon further on is part of a name.
constexpr bool NamesDrive(std::string_view path) {
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return path.size() >= 2 && path[1] == ':' && isLetter(path[0]);
}

/// Everything up to and including the last path delimiter or drive colon; empty when there is none.
VEK_API std::string_view FolderPart(std::string_view path);

/// What follows the folder part.
VEK_API std::string_view NamePart(std::string_view path);

/// The folder part without its trailing delimiter, except for a root ("C:\a\b" -> "C:\a", "C:\b" -> "C:\").
VEK_API std::string_view DirectoryPart(std::string_view path);

/// The path without one trailing path delimiter.
VEK_API std::string_view WithoutTrailingDelimiter(std::string_view path);

/// The path with a trailing path delimiter (this one is added unless the path ends in one or is empty).
VEK_API std::string WithTrailingDelimiter(std::string_view path, char delimiter);

/// The path with this delimiter in place of every one.
VEK_API std::string WithDelimiters(std::string_view path, char delimiter);

/// The folder that holds `path`, without a trailing delimiter except for a root ("C:\a\b" -> "C:\a").
VEK_API std::string_view ParentFolder(std::string_view path);

/// The root of a full path, with its delimiter ("C:\", "\\server\share\", "/").
VEK_API std::string_view RootOf(std::string_view path);

/// True when the name part holds '*' or '?'.
VEK_API bool HasWildcards(std::string_view spec);
