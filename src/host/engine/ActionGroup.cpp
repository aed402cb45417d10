#include "host/engine/ActionGroup.h"

#include "coreapi/Vekservices.h"
#include "host/engine/RunProjectAction.h"

const ActionClass TCustomVekActionGroup::kClass{
    .inherited = &TVekAction::kClass, .className = "TCustomVekActionGroup", .actionName = "Action Group"};

void RegisterHostActions(IVekActionServices& services) {
  services.RegisterAction("Action Group", "Structure", TVekActionGroup::Class(), "ACTIONGROUP");
  services.RegisterAction("Run Project", "Structure", TVekRunProject::Class(), "RUNPROJECT");
}
