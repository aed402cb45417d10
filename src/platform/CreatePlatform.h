#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/Text.h"
#include "platform/Platform.h"

class Console;

/// The folder that a drive letter (upper case) stands for, or nothing when it is not mapped. Asked only when
/// a path names the drive; a backend that has drives of its own does not ask.
using DriveLookup = std::function<std::optional<std::string>(char letter)>;

/// The file that a backend without a registry of its own keeps one in; empty for the one in the user's data
/// folder. Asked once, when the registry is first used.
using RegistryFile = std::function<std::string()>;

/// Owns the capabilities of a backend.
class PlatformOwner {
 public:
  virtual ~PlatformOwner() = default;
  virtual const Platform& Get() const = 0;
  virtual Console& GetConsole() = 0;
};

/// Makes the backend of the operating system that this program was built for; each backend defines it.
std::unique_ptr<PlatformOwner> CreatePlatform(DriveLookup drives, RegistryFile registry = {});

/// The first thing in main: has the standard streams take UTF-8 with line breaks as written, and answers the
/// program's arguments as UTF-8, without its name.
StringList StartProgram(int argc, char** argv);

/// Ends this program at once, whatever its threads are at, and by force the program that it runs.
[[noreturn]] void EndProgram(int exitCode);
