#include "platform/win32/system/Win32Modules.h"

#include "base/Text.h"
#include "platform/win32/paths/Win32Path.h"
#include "platform/win32/system/Win32Api.h"
#include "platform/win32/system/Win32ErrorTexts.h"

namespace {

class Win32Module final : public LoadedModule {
 public:
  explicit Win32Module(HMODULE module) : module_(module) {}
  Win32Module(const Win32Module&) = delete;
  Win32Module& operator=(const Win32Module&) = delete;
  ~Win32Module() override { FreeLibrary(module_); }

  void* Function(const char* name) override { return reinterpret_cast<void*>(GetProcAddress(module_, name)); }

 private:
  HMODULE module_;
};

}  // namespace

std::unique_ptr<LoadedModule> Win32Modules::Load(std::string_view path, std::string& error) {
  std::wstring native;
  SysResult result = NativePath(path, native);
  if (result) {
    // What the module needs is looked for beside it first; a DLL that lacks shall not open a box.
    const NoErrorBoxes quiet;
    if (const HMODULE module = LoadLibraryExW(native.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {
      return std::make_unique<Win32Module>(module);
    }
    result = LastFailure();
  }
  error = ReplaceAll(Win32ErrorTexts().Text(result.code), "%1", path);
  return nullptr;
}

std::string Win32Modules::FileName(std::string_view baseName) { return std::string(baseName) + ".dll"; }
