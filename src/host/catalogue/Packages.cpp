#include "host/catalogue/Packages.h"

#include <string>

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekutils.h"
#include "platform/Environment.h"
#include "platform/Platform.h"

namespace {

using RegisterFunction = bool (*)(bool designTime);

/// An exception of the package's must not outlive its module, so it goes on as one of the host's.
bool Register(RegisterFunction registerTypes, bool designTime, const std::string& name) {
  try {
    return registerTypes(designTime);
  } catch (const std::exception& error) {
    throw EVekError(name + ": " + error.what());
  } catch (...) {
    throw EVekError(name + " raised an unknown exception");
  }
}

}  // namespace

void Packages::Load(std::string_view file, bool designTime) {
  const std::string name = "package " + std::string(file);
  std::string error;
  auto module = platform_.modules->Load(file, error);
  if (!module) throw EVekError(name + " does not load: " + error);
  const auto registerTypes = reinterpret_cast<RegisterFunction>(module->Function("VekRegister"));
  if (!registerTypes) throw EVekError(name + " has no VekRegister");
  modules_.push_back(std::move(module));
  if (!Register(registerTypes, designTime, name)) {
    throw EVekError(name + " could not register its action types");
  }
}

std::string Packages::DefaultPackage() const {
  return AsFolder(platform_, platform_.environment->ProgramFolder()) +
         platform_.modules->FileName("Vek40File");
}
