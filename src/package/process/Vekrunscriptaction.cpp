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
  if (!HasScript(kEvent)) return true;  // nothing in it that could fail
  return RunScript(kEvent, {{"ActionResult", true}}) && IsSuccess(ScriptResult(kEvent, "ActionResult"));
}
