#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/DateTime.h"
#include "base/Win32Error.h"

/// What a file is opened for; the position is its start.
enum class OpenMode {
  Read,    // an existing file
  Modify,  // an existing file, for reading and writing
  Create,  // a new or an emptied one, likewise
};

/// What other opens of the file may not do while this one is held, whichever comes first.
enum class ShareMode { DenyNone, DenyWrite, DenyAll };

/// A file held open until it is destroyed. Operations answer with the system's error code.
class OpenFile {
 public:
  virtual ~OpenFile() = default;

  /// Reads what is there, at most the size of the buffer; a count of 0 is the end of the file.
  virtual SysResult Read(std::span<char> buffer, size_t& count) = 0;

  /// Writes all bytes, or fails with some of them written.
  virtual SysResult Write(std::string_view bytes) = 0;

  /// Writes what comes next in another file, at most so many bytes; a count of 0 is that file's end. A
  /// failure may leave some of them written.
  virtual SysResult CopyFrom(OpenFile& source, uint64_t most, uint64_t& count) = 0;

  /// Moves to a position, in bytes from the start.
  virtual SysResult Seek(uint64_t position) = 0;

  virtual SysResult GetSize(uint64_t& size) = 0;

  /// Cuts the file off, or lengthens it with zeros; the position stays.
  virtual SysResult SetSize(uint64_t size) = 0;

  /// The local date and time of the last write.
  virtual SysResult GetLastWrite(TDateTime& local) = 0;
  virtual SysResult SetLastWrite(TDateTime local) = 0;
};
