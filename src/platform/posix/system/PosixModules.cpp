#include "platform/posix/system/PosixModules.h"

#include <dlfcn.h>
#include <unistd.h>

#include "platform/posix/system/PosixErrors.h"

namespace {

class PosixModule final : public LoadedModule {
 public:
  explicit PosixModule(void* handle) : handle_(handle) {}
  ~PosixModule() override { dlclose(handle_); }
  PosixModule(const PosixModule&) = delete;
  PosixModule& operator=(const PosixModule&) = delete;

  void* Function(const char* name) override { return dlsym(handle_, name); }

 private:
  void* handle_;
};

}  // namespace

std::unique_ptr<LoadedModule> PosixModules::Load(std::string_view path, std::string& error) {
  void* handle = nullptr;
  const SysResult found = paths_.OnEntry(path, [&](const Place& place) {
    if (faccessat(place.Fd(), place.Name(), F_OK, 0) != 0) return LastFailure();
    // A path with a folder, so that no search path comes in. Every function is bound now: one that is missing
    // must not end a build half-way.
    const std::string file = place.folder->path + "/" + place.name;
    handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) error = dlerror();
    return SysResult();
  });
  if (!found) error = PosixErrorTexts().Text(found.code);
  return handle != nullptr ? std::make_unique<PosixModule>(handle) : nullptr;
}
