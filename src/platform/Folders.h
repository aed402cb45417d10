#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/Win32Error.h"

/// What is about to be done while a folder is emptied: a sub-folder is entered or removed, another entry
/// deleted.
enum class EmptyingStep { Enter, Remove, Delete };

struct EmptyingOptions {
  bool deleteReadOnly = false;  // files; a read-only folder stays in any case

  /// What the paths that are told begin with; its last character separates their names.
  std::string shownAs = {};

  /// False ends the work with RequestAborted.
  std::function<bool(EmptyingStep step, std::string_view path)> watch = {};
};

/// Folders by path, as for Entries. Operations answer with the system's error code.
class Folders {
 public:
  virtual ~Folders() = default;

  virtual bool Exists(std::string_view path) = 0;

  /// Creates one folder; its parent must exist (PathNotFound) and the name be free (AlreadyExists).
  virtual SysResult Create(std::string_view path) = 0;

  /// The same, and where the system can tell them apart a folder of the name in other letters does not count.
  virtual SysResult CreateAsWritten(std::string_view path) { return Create(path); }

  /// Creates the folder and its missing parents; a folder that exists is success. It is made for what comes
  /// from the folder `source`, where that is given: of two folders there whose names differ in case only,
  /// the one that the other became is not taken for it.
  SysResult CreateWithParents(std::string_view path) { return CreateWithParents(path, {}); }
  virtual SysResult CreateWithParents(std::string_view path, std::string_view source) = 0;

  /// Removes an empty folder. A read-only one is refused with AccessDenied.
  virtual SysResult Remove(std::string_view path) = 0;

  /// Removes all that a folder holds, in the order of a search and however deep it goes; the first failure
  /// ends it. Links are removed and never followed, also where a folder becomes one meanwhile; given a link,
  /// it does nothing. What vanishes meanwhile is passed over.
  virtual SysResult Empty(std::string_view path, const EmptyingOptions& options) = 0;
};
