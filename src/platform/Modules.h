#pragma once

#include <memory>
#include <string>
#include <string_view>

/// A loaded module; unloaded by destruction.
class LoadedModule {
 public:
  virtual ~LoadedModule() = default;

  /// The address of an exported function, or null.
  virtual void* Function(const char* name) = 0;
};

class Modules {
 public:
  virtual ~Modules() = default;

  /// Loads a module; null with the system's word for it in `error` when it does not load.
  virtual std::unique_ptr<LoadedModule> Load(std::string_view path, std::string& error) = 0;

  /// The file name of a module of the given base name on this platform ("Vek40File" -> "Vek40File.so").
  virtual std::string FileName(std::string_view baseName) = 0;
};
