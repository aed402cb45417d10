#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "base/Win32Error.h"

/// The process's surroundings. Folders are answered as full paths without a trailing delimiter.
class Environment {
 public:
  virtual ~Environment() = default;

  virtual std::optional<std::string> Variable(std::string_view name) = 0;

  /// Gives the programs that are started from now on a variable of their environment, or takes it away. The
  /// home folder and the data folder stay what they were.
  virtual SysResult Export(std::string_view name, const std::optional<std::string>& text) = 0;

  virtual std::string CurrentFolder() = 0;
  virtual SysResult SetCurrentFolder(std::string_view path) = 0;

  /// The full path of a file or folder: absolute, in the platform's own separators, "." and ".." resolved
  /// as text; the file need not exist.
  virtual std::string FullPath(std::string_view path) = 0;

  /// What is added to a path is spelt as the path is: its first delimiter, or the machine's own where it has
  /// none; on Windows always '\'.
  virtual char PathDelimiter(std::string_view path) = 0;

  /// The path as other programs of this machine take it: drives resolved, in the machine's delimiters, and in
  /// the spelling of the disk where an entry stands there. A relative path stays relative.
  virtual std::string NativePath(std::string_view path) = 0;

  virtual std::string TempFolder() = 0;

  /// A number that nobody can guess, for names that must not meet another's.
  virtual uint32_t RandomNumber() = 0;

  /// Where the operating system keeps its programs.
  virtual std::string SystemFolder() = 0;

  virtual std::string HomeFolder() = 0;

  /// The folders directly below a root that are the system's own; they need not all exist.
  virtual StringList ReservedFolders() = 0;

  /// Where this user's host data lies (option store, registry store); it need not exist yet.
  virtual std::string DataFolder() = 0;

  /// The folder of the running program.
  virtual std::string ProgramFolder() = 0;

  /// The command interpreter, the start value of the variable DOSCMD.
  virtual std::string CommandInterpreter() = 0;
};
