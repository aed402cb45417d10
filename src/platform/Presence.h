#pragma once

#include <string_view>

#include "base/Win32Error.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

/// Whether an entry that could not be looked at may be there. It counts as there: who takes its name for free
/// would replace it, and who goes on meets the reason.
constexpr bool MayBeThere(Win32Error code) {
  return code == Win32Error::GeneralFailure || code == Win32Error::AccessDenied ||
         code == Win32Error::SharingViolation || code == Win32Error::TooManyOpenFiles ||
         code == Win32Error::NotEnoughMemory || code == Win32Error::DiskFull;
}

/// Whether a folder is there, or may be: for who goes on with it and meets the reason.
inline bool FolderMayExist(const Platform& platform, std::string_view path) {
  if (platform.folders->Exists(path)) return true;
  uint32_t attributes = 0;
  const SysResult looked = platform.entries->GetAttributes(path, attributes);
  return looked ? (attributes & FileAttribute::Directory) != 0 : MayBeThere(looked.code);
}
