#pragma once

#include <functional>
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

/// Takes the new text of a file from its start to its end, so that none has to be held as a whole.
class NewText {
 public:
  virtual ~NewText() = default;
  virtual void Append(std::string_view piece) = 0;
};

/// What is in files, by path, as for Entries. Operations answer with the system's error code.
class Contents {
 public:
  virtual ~Contents() = default;

  /// Reads the whole file, byte for byte; refused with SharingViolation while another holds it exclusively,
  /// and with NotSupported for anything that is no file of bytes, which might never come to its end.
  virtual SysResult ReadWhole(std::string_view path, std::string& contents) = 0;

  /// The same for whatever can be read to its end, a pipe too.
  virtual SysResult ReadStream(std::string_view path, std::string& contents) = 0;

  /// Gives the file new contents in one step: whoever looks sees the old file or the whole new one, and a
  /// failure leaves the old one. An existing file keeps its mode and attributes; a read-only one is refused
  /// with AccessDenied, and what is no file of bytes with NotSupported. A link is followed.
  virtual SysResult Replace(std::string_view path, std::string_view contents) = 0;

  /// Begins to replace the contents of a file, under the same rules: for what is too large to be held.
  virtual SysResult Rewrite(std::string_view path, std::unique_ptr<NewContents>& contents) = 0;

  /// Reads a file and replaces it by what `edit` makes of its text; a missing file is an empty text, and an
  /// edit that answers false leaves the file. All who change files by this operation, or replace them, take
  /// turns, in other processes too, so that no change is lost: `edit` must not change files of the same
  /// folder itself. LockViolation when no turn comes within ten seconds.
  using Edit = std::function<bool(const std::string& contents, NewText& changed)>;
  virtual SysResult Change(std::string_view path, const Edit& edit) = 0;

  /// Opens a file, links followed. FileNotFound and PathNotFound where there is none, unless it is to be
  /// created; AccessDenied for a folder, for anything else that is no file of bytes, and for writing to a
  /// read-only file; SharingViolation where another open stands against it.
  virtual SysResult Open(std::string_view path, OpenMode mode, ShareMode share,
                         std::unique_ptr<class OpenFile>& file) = 0;
};
