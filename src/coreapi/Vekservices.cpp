#include "coreapi/Vekservices.h"

#include "coreapi/Vekerrors.h"

namespace {

const VekHostServices* installed = nullptr;

const VekHostServices& Installed() {
  if (!installed) throw EVekError("no host is installed");
  return *installed;
}

}  // namespace

void InstallVekServices(const VekHostServices* services) { installed = services; }

IVekActionServices& VekActionServices() { return Installed().actions; }
IVekScriptingServices& VekScriptingServices() { return Installed().scripting; }
IVekOptionsServices& VekOptionsServices() { return Installed().options; }
IVekDialogServices& VekDialogServices() { return Installed().dialogs; }
IVekDesignApplicationServices* VekDesignApplicationServices() { return Installed().design; }
