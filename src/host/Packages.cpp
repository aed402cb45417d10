#include "host/Packages.h"

#include <string>

#include "base/WindowsPath.h"
#include "coreapi/Vekerrors.h"
#include "platform/Environment.h"
#include "platform/Platform.h"

void Packages::Load(std::string_view file, bool designTime) {
  const std::string name = "package " + std::string(file);
  std::string error;
  auto module = platform_.modules.Load(file, error);
  if (!module) throw EVekError(name + " does not load: " + error);
  using RegisterFunction = bool (*)(bool designTime);
  const auto registerTypes = reinterpret_cast<RegisterFunction>(module->Function("VekRegister"));
  if (!registerTypes) throw EVekError(name + " has no VekRegister");
  modules_.push_back(std::move(module));
  if (!registerTypes(designTime)) throw EVekError(name + " could not register its action types");
}

std::string Packages::DefaultPackage() const {
  return WithTrailingDelimiter(platform_.environment.ProgramFolder()) +
         platform_.modules.FileName("Vek40File");
}
