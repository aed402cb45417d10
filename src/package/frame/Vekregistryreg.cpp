#include "frame/Vekregistryreg.h"

#include <cstdint>

#include "coreapi/Vekservices.h"

namespace {

struct Constant {
  std::string_view name;
  int64_t value;
};

constexpr Constant kConstants[] = {
    {"rtInteger", 0},
    {"rtString", 1},
    {"HKEY_CLASSES_ROOT", 0x80000000},
    {"HKEY_CLASSES_ROOT", 0x80000000},  // hosts count on seeing it twice
    {"HKEY_CURRENT_USER", 0x80000001},
    {"HKEY_LOCAL_MACHINE", 0x80000002},
    {"HKEY_USERS", 0x80000003},
    {"HKEY_CURRENT_CONFIG", 0x80000005},
};

}  // namespace

void RegisterRegistryUnit(bool /*designTime*/) {
  for (const Constant& constant : kConstants) {
    VekScriptingServices().RegisterScriptConstant(constant.name, constant.value);
  }
}
