#include "process/Vekrunscriptaction.h"

namespace {

constexpr std::string_view kEvent = "OnExecute";

}  // namespace

const ActionClass TVekCustomScriptAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TVekCustomScriptAction",
    .actionName = "Run Script",
    .helpTopicID = 1590,
    .quickHelpFilename = "Plugins\\RunScript.html",
};

TVekCustomScriptAction::TVekCustomScriptAction(IVekActionHost& host) : TVekAction(host) { AddScript(kEvent); }

void TVekCustomScriptAction::InitialiseScriptParams(IVekActionScript& script) {
  TVekAction::InitialiseScriptParams(script);
  if (script.Name() != kEvent) return;
  script.Params().AddParameter("Action", ScriptParamKind::In);
  script.Params().AddParameter("ActionResult", ScriptParamKind::InOut);
}

bool TVekCustomScriptAction::Execute() {
  IVekActionScript& script = *GetScriptByName(kEvent);
  if (script.IsBlank()) return true;  // nothing in it that could fail
  const auto action = CreateActionScriptObject(*this);
  IVekActionScriptParams& params = script.Params();
  params.ParameterByName("Action").SetValue(action.get());
  params.ParameterByName("ActionResult").SetValue(true);
  Variant ignored;
  if (!ExecuteScript(kEvent, ignored)) return false;
  return IsTrue(params.ParameterByName("ActionResult").Value());
}
