#include "host/engine/ActionGroup.h"

#include "coreapi/Vekservices.h"

const ActionClass TCustomVekActionGroup::kClass{
    .inherited = &TVekAction::kClass, .className = "TCustomVekActionGroup", .actionName = "Action Group"};

void RegisterHostActions(IVekActionServices& services) {
  services.RegisterAction("Action Group", "Structure", TVekActionGroup::Class(), "ACTIONGROUP");
}
