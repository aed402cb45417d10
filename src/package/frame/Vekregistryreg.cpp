#include "frame/Vekregistryreg.h"

#include <cstdint>

#include "coreapi/Vekservices.h"
#include "frame/Vekcatalogue.h"
#include "pages/Vekeditors.h"
#include "pages/Vekreadregistryframe.h"
#include "pages/Vekregeditors.h"
#include "textini/Vekregaction.h"

namespace {

constexpr std::string_view kRegistryAndIni = "Registry & Ini";

constexpr CatalogueRow kActions[] = {
    ActionRow<TReadRegValueAction, TReadRegistryFrame>("VEKREADREG", kOwnName, kRegistryAndIni),
    ActionRow<TSetRegValueAction, TReadRegistryFrame>("VEKSETREG", kOwnName, kRegistryAndIni),
    ActionRow<TDeleteRegValueAction, TReadRegistryFrame>("VEKDELREG", kOwnName, kRegistryAndIni),
};

constexpr EditorRow kEditors[] = {
    PropertyEditor<TReadRegValueAction>("ByteString", "VekVariable", kVariablesListEditor),
    PropertyEditor<TCustomRegAction>("Cardinal", "RegRoot", kRegRootEditor),
};

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

void RegisterRegistryUnit(bool designTime) {
  RegisterActions(kActions, designTime);
  for (const Constant& constant : kConstants) {
    VekScriptingServices().RegisterScriptConstant(constant.name, constant.value);
  }
  if (!designTime) return;
  RegisterEditors(kEditors);
  RegisterPages(kActions);
}
