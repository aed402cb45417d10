#include "platform/CreatePlatform.h"
#include "platform/Platform.h"
#include "platform/win32/com/Win32ComClasses.h"
#include "platform/win32/files/Win32Contents.h"
#include "platform/win32/files/Win32Entries.h"
#include "platform/win32/files/Win32Folders.h"
#include "platform/win32/find/Win32Finder.h"
#include "platform/win32/ini/Win32IniFiles.h"
#include "platform/win32/processes/Win32Processes.h"
#include "platform/win32/registry/Win32Registry.h"
#include "platform/win32/shell/Win32Shell.h"
#include "platform/win32/system/Win32Clock.h"
#include "platform/win32/system/Win32Console.h"
#include "platform/win32/system/Win32Disk.h"
#include "platform/win32/system/Win32Environment.h"
#include "platform/win32/system/Win32ErrorTexts.h"
#include "platform/win32/system/Win32Locale.h"
#include "platform/win32/system/Win32Modules.h"
#include "platform/win32/system/Win32Sounds.h"
#include "platform/win32/windows/Win32ProcessWindows.h"

namespace {

class Win32Platform final : public PlatformOwner {
 public:
  const Platform& Get() const override { return platform_; }
  Console& GetConsole() override { return console_; }

 private:
  Win32Folders folders_;
  Win32Contents contents_;
  Win32Entries entries_{folders_, contents_};
  Win32Finder finder_;
  Win32Environment environment_;
  Win32Clock clock_;
  Win32Locale locale_;
  Win32ErrorTexts errorTexts_;
  Win32Modules modules_;
  Win32IniFiles iniFiles_{contents_};
  Win32Registry registry_;
  Win32Processes processes_;
  Win32Disk disk_;
  Win32Sounds sounds_;
  Win32Shell shell_;
  Win32ProcessWindows windows_;
  Win32ComClasses comClasses_;
  Win32Console console_;
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

/// Windows has drives and a registry of its own and asks for none.
std::unique_ptr<PlatformOwner> CreatePlatform(DriveLookup /*drives*/, RegistryFile /*registry*/) {
  return std::make_unique<Win32Platform>();
}
