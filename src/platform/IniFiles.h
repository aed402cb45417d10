#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "base/Win32Error.h"

struct IniEntry {
  std::string name;
  std::string value;
};

/// What becomes of a section's other lines when entries are written to it.
enum class OtherLines { Keep, Remove };

/// INI files by path, with private-profile semantics: names compare without regard to case and to blanks
/// around them, of several sections or keys of one name the first counts, a value loses the blanks and one
/// pair of quotes around it. A file that is missing, or whose folder is, reads as empty.
///
/// A change leaves every byte of the other lines as it is (encoding, line breaks, comments, lines that mean
/// nothing) and reaches the disk in one step: whoever looks sees the old file or the new one, and a failure
/// leaves the old one. [any thread]
class IniFiles {
 public:
  virtual ~IniFiles() = default;

  /// Reports the value of a key; nothing when the section or the key is missing or the key has no "=".
  virtual SysResult Read(std::string_view path, std::string_view section, std::string_view key,
                         std::optional<std::string>& value) = 0;

  /// Reports the names of all sections in the order of the file, repeated ones too.
  virtual SysResult ReadSections(std::string_view path, StringList& names) = 0;

  /// Reports the keys and values of a section in the order of the file, repeated ones too. Comments (";") and
  /// lines without "=" are none.
  virtual SysResult ReadEntries(std::string_view path, std::string_view section,
                                std::vector<IniEntry>& entries) = 0;

  /// Writes the value as it stands. A new key comes after the last line of its section, a new section at the
  /// end, a new file begins with it; a missing folder is PathNotFound, a read-only file AccessDenied.
  virtual SysResult Write(std::string_view path, std::string_view section, std::string_view key,
                          std::string_view value) = 0;

  /// Writes all the entries of one section in the same way, the file changed once. With OtherLines::Remove
  /// they take the place of the section as it was.
  virtual SysResult WriteEntries(std::string_view path, std::string_view section,
                                 std::span<const IniEntry> entries, OtherLines others) = 0;

  /// Removes the line of a key, or a section with all its lines. That there is none is success.
  virtual SysResult Delete(std::string_view path, std::string_view section, std::string_view key) = 0;
  virtual SysResult DeleteSection(std::string_view path, std::string_view section) = 0;
};
