#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/Modules.h"

struct Platform;

/// The loaded packages. They must outlive everything made from their classes.
class Packages {
 public:
  explicit Packages(const Platform& platform) : platform_(platform) {}

  /// Loads a package and has it register its types; pages and editors only when `designTime` is set. Raises
  /// EVekError, which names the file, for a module that does not load or is no package.
  void Load(std::string_view file, bool designTime);

  /// Where the package that belongs to this program lies: beside it.
  std::string DefaultPackage() const;

 private:
  const Platform& platform_;
  std::vector<std::unique_ptr<LoadedModule>> modules_;
};
