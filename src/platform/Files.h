#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Win32Error.h"

/// How other opens of the same file are treated while one is held.
enum class ShareMode { None, Read, ReadWrite };

/// Files by path. Paths are Windows paths (see base/WindowsPath.h); names are matched exactly first, then
/// without regard to case. Every operation answers with the system's error code.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool FileExists(std::string_view path) = 0;
  virtual bool FolderExists(std::string_view path) = 0;

  /// Whether an entry stands on the disk in exactly this spelling; a link counts as the link itself.
  virtual bool EntryExists(std::string_view path) = 0;

  /// Reports the attribute bits (Normal when none is set).
  virtual SysResult GetAttributes(std::string_view path, uint32_t& attributes) = 0;

  /// Writes read-only, hidden, system and archive as given; Normal or 0 clears them. Fails with the system's
  /// error where the file system cannot store a bit that is to be set. A link stores none of its own (a
  /// change is NotSupported), and what it leads to is not touched.
  virtual SysResult SetAttributes(std::string_view path, uint32_t attributes) = 0;

  /// Deletes a file or a link. A read-only one and a folder are refused with AccessDenied.
  virtual SysResult Delete(std::string_view path) = 0;

  /// Creates one folder; its parent must exist (PathNotFound) and the name be free (AlreadyExists).
  virtual SysResult CreateFolder(std::string_view path) = 0;

  /// Creates the folder and its missing parents; a folder that exists is success.
  virtual SysResult CreateFolders(std::string_view path) = 0;

  /// Removes an empty folder. A read-only one is refused with AccessDenied.
  virtual SysResult RemoveFolder(std::string_view path) = 0;

  /// Reads the whole file, byte for byte; refused with SharingViolation while another holds it exclusively.
  virtual SysResult ReadWhole(std::string_view path, std::string& contents) = 0;

  /// Gives the file new contents in one step: whoever looks sees the old file or the whole new one, and a
  /// failure leaves the old one. An existing file keeps its mode and attributes; a read-only one is refused
  /// with AccessDenied. A link is followed.
  virtual SysResult Replace(std::string_view path, std::string_view contents) = 0;
};
