#include "platform/CreatePlatform.h"
#include "platform/posix/com/PosixComClasses.h"
#include "platform/posix/files/PosixContents.h"
#include "platform/posix/files/PosixEntries.h"
#include "platform/posix/files/PosixFolders.h"
#include "platform/posix/find/PosixFinder.h"
#include "platform/posix/ini/PosixIniFiles.h"
#include "platform/posix/paths/PosixPaths.h"
#include "platform/posix/processes/PosixProcesses.h"
#include "platform/posix/registry/PosixRegistry.h"
#include "platform/posix/shell/PosixShell.h"
#include "platform/posix/system/PosixClock.h"
#include "platform/posix/system/PosixConsole.h"
#include "platform/posix/system/PosixDisk.h"
#include "platform/posix/system/PosixEnvironment.h"
#include "platform/posix/system/PosixErrors.h"
#include "platform/posix/system/PosixLocale.h"
#include "platform/posix/system/PosixModules.h"
#include "platform/posix/system/PosixSounds.h"
#include "platform/posix/windows/PosixProcessWindows.h"

namespace {

class PosixPlatform final : public PlatformOwner {
 public:
  PosixPlatform(DriveLookup drives, RegistryFile registry)
      : paths_(std::move(drives)), registryFile_(std::move(registry)) {}

  const Platform& Get() const override { return platform_; }
  Console& GetConsole() override { return console_; }

 private:
  std::string StorePath() {
    std::string file = registryFile_ ? registryFile_() : std::string();
    return file.empty() ? environment_.DataFolder() + "/registry.reg" : file;
  }

  PosixPaths paths_;
  RegistryFile registryFile_;
  PosixFolders folders_{paths_};
  PosixEntries entries_{paths_, folders_};
  PosixContents contents_{paths_};
  PosixFinder finder_{paths_};
  PosixEnvironment environment_{paths_};
  PosixClock clock_;
  PosixLocale locale_;
  PosixErrorTexts errorTexts_;
  PosixModules modules_{paths_};
  PosixIniFiles iniFiles_{paths_};
  PosixRegistry registry_{paths_, folders_, [this] { return StorePath(); }};
  PosixProcesses processes_{paths_};
  PosixDisk disk_{paths_};
  PosixSounds sounds_{paths_, processes_};
  PosixShell shell_{paths_, processes_};
  PosixProcessWindows windows_;
  PosixComClasses comClasses_{registry_, entries_};
  PosixConsole console_{paths_};
  Platform platform_{.entries = &entries_,
                     .folders = &folders_,
                     .contents = &contents_,
                     .finder = &finder_,
                     .environment = &environment_,
                     .clock = &clock_,
                     .locale = &locale_,
                     .errorTexts = &errorTexts_,
                     .modules = &modules_,
                     .iniFiles = &iniFiles_,
                     .registry = &registry_,
                     .processes = &processes_,
                     .disk = &disk_,
                     .sounds = &sounds_,
                     .shell = &shell_,
                     .windows = &windows_,
                     .comClasses = &comClasses_};
};

}  // namespace

std::unique_ptr<PlatformOwner> CreatePlatform(DriveLookup drives, RegistryFile registry) {
  return std::make_unique<PosixPlatform>(std::move(drives), std::move(registry));
}
