#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "coreapi/Vekprojectobjects.h"
#include "vekcoreapi_export.h"

/// A named set of the project's files. It is evaluated when it is first used, and again on Refresh; what
/// cannot be evaluated raises EVekError. [build thread]
class IVekFileSet : public IVekProjectObject {
 public:
  /// Rebuilds the list of files.
  virtual void Refresh() = 0;

  /// The sum of the sizes of all files, in bytes.
  virtual uint64_t GetTotalSize() = 0;

  /// As declared; it may hold expressions.
  virtual std::string GetBaseDirectory() = 0;

  /// The patterns that choose files below it, likewise.
  virtual StringList GetIncludes() = 0;

  /// The names of all files with `separator` between them. Each begins with the expanded base directory.
  virtual std::string GetFileList(std::string_view separator) = 0;
};

/// The object type of file sets; an object found under it is an IVekFileSet.
inline constexpr std::string_view kFileSetObject = "FileSetObject";

/// The project's file set of that name without regard to case, or null.
VEK_API IVekFileSet* FindFileSet(IVekProjectObjectAPI& objects, std::string_view name);

/// What to say when there is none.
VEK_API std::string FileSetNotFound(std::string_view name);
