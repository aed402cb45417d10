#include "process/Vekrunscriptaction.h"

namespace {

constexpr std::string_view kEvent = "OnExecute";

/// The result is a boolean, so that the text of one counts as it reads.
bool IsSuccess(const Variant& result) {
  if (const auto* text = std::get_if<std::string>(&result)) {
    if (const auto truth = VariantFromText("Boolean", *text)) return IsTrue(*truth);
  }
  return IsTrue(result);
}

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
  const bool ran = ExecuteScript(kEvent, ignored);
  params.ParameterByName("Action").SetValue({});
  return ran && IsSuccess(params.ParameterByName("ActionResult").Value());
}
