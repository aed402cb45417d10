#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/WindowsPath.h"

/// A new, empty folder for one test; removed with all that it holds, read-only files included. Names are
/// UTF-8, relative to the folder, with '/' between their parts.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  /// The folder's full path without a trailing delimiter, or that of an entry in it.
  const std::string& Path() const { return path_; }
  std::string Path(std::string_view name) const { return path_ + "/" + std::string(name); }

  /// The folder's path in the delimiters of Windows, which the platform understands on every system: what is
  /// found below it is spelt so too.
  std::string WindowsPath() const { return WithDelimiters(path_, '\\'); }

  /// Writes a file, making the folders that its name asks for.
  void Write(std::string_view name, std::string_view text = "") const;
  void MakeFolder(std::string_view name) const;

  /// The whole file; fails the test when there is none.
  std::string Read(std::string_view name) const;
  bool Exists(std::string_view name) const;

  /// The names of all entries of the folder (or of one below it), sorted by bytes.
  std::vector<std::string> Names(std::string_view below = "") const;

 private:
  std::string path_;
};
