#pragma once

#include <string_view>

#include "base/Win32Error.h"

/// Folders by path, as for Entries. Operations answer with the system's error code.
class Folders {
 public:
  virtual ~Folders() = default;

  virtual bool Exists(std::string_view path) = 0;

  /// Creates one folder; its parent must exist (PathNotFound) and the name be free (AlreadyExists).
  virtual SysResult Create(std::string_view path) = 0;

  /// Creates the folder and its missing parents; a folder that exists is success.
  virtual SysResult CreateWithParents(std::string_view path) = 0;

  /// Removes an empty folder. A read-only one is refused with AccessDenied.
  virtual SysResult Remove(std::string_view path) = 0;
};
