#pragma once

#include <string_view>

#include "base/WindowsPath.h"
#include "platform/Files.h"

/// A path that ends in a delimiter is one of a folder. Every backend asks here, since systems differ in what
/// they make of it.

/// Success for a path that may name a file.
inline SysResult CheckFileName(Files& files, std::string_view path) {
  if (!EndsInPathDelimiter(path)) return {};
  return SysResult::Failure(files.FolderExists(path) ? Win32Error::AccessDenied : Win32Error::PathNotFound);
}

inline SysResult CheckFileNames(Files& files, std::string_view source, std::string_view target) {
  const SysResult result = CheckFileName(files, source);
  return result ? CheckFileName(files, target) : result;
}

/// The same for a move, which may be one of a folder.
inline SysResult CheckMoveNames(Files& files, std::string_view source, std::string_view target) {
  if (!EndsInPathDelimiter(source) && !EndsInPathDelimiter(target)) return {};
  return files.FolderExists(source) ? SysResult() : CheckFileNames(files, source, target);
}
