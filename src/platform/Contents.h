#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/Win32Error.h"
#include "platform/OpenFile.h"

/// New contents of a file in the making. Until they are committed the file is what it was, or is not there;
/// without a commit they vanish.
class NewContents {
 public:
  virtual ~NewContents() = default;

  /// Where they are written.
  // The header of Windows has a function of the name OpenFile; hence "class", here and below.
  virtual class OpenFile& File() = 0;

  /// Gives them to the file, in one step; only once, and the last thing that is done with them.
  virtual SysResult Commit() = 0;
};

/// What is in files, by path, as for Entries. Operations answer with the system's error code.
class Contents {
 public:
  virtual ~Contents() = default;

  /// Reads the whole file, byte for byte; refused with SharingViolation while another holds it exclusively.
  virtual SysResult ReadWhole(std::string_view path, std::string& contents) = 0;

  /// Gives the file new contents in one step: whoever looks sees the old file or the whole new one, and a
  /// failure leaves the old one. An existing file keeps its mode and attributes; a read-only one is refused
  /// with AccessDenied. A link is followed.
  virtual SysResult Replace(std::string_view path, std::string_view contents) = 0;

  /// Begins to replace the contents of a file, under the same rules: for what is too large to be held. Only a
  /// file of bytes can be (AccessDenied).
  virtual SysResult Rewrite(std::string_view path, std::unique_ptr<NewContents>& contents) = 0;

  /// Opens a file, links followed. FileNotFound and PathNotFound where there is none, unless it is to be
  /// created; AccessDenied for a folder, for anything else that is no file of bytes, and for writing to a
  /// read-only file; SharingViolation where another open stands against it.
  virtual SysResult Open(std::string_view path, OpenMode mode, ShareMode share,
                         std::unique_ptr<class OpenFile>& file) = 0;
};
