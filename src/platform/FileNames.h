#pragma once

#include <string_view>

#include "base/WindowsPath.h"
#include "platform/Folders.h"

/// A path that ends in a delimiter is one of a folder. Every backend asks here, since systems differ in what
/// they make of it.

/// Success for a path that may name a file.
inline SysResult CheckFileName(Folders& folders, std::string_view path) {
  if (!EndsInPathDelimiter(path)) return {};
  return SysResult::Failure(folders.Exists(path) ? Win32Error::AccessDenied : Win32Error::PathNotFound);
}

inline SysResult CheckFileNames(Folders& folders, std::string_view source, std::string_view target) {
  const SysResult result = CheckFileName(folders, source);
  return result ? CheckFileName(folders, target) : result;
}

/// The same for a move, which may be one of a folder.
inline SysResult CheckMoveNames(Folders& folders, std::string_view source, std::string_view target) {
  if (!EndsInPathDelimiter(source) && !EndsInPathDelimiter(target)) return {};
  return folders.Exists(source) ? SysResult() : CheckFileNames(folders, source, target);
}
