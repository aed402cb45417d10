#include "interaction/VekPromptForFileOrDirAction.h"

#include "coreapi/Vekutils.h"

namespace {

constexpr std::string_view kAliases[] = {
    "[Prompt for File or Directory]", "PromptText=Prompt Text",      "PromptFor=Prompt for",
    "VekVariable=Variable",           "InitialPath=Initial Path",    "Filter=Filter",
    "MustExist=Must Exist",           "FailOnCancel=Fail on Cancel",
};

constexpr std::string_view kHelp[] = {
    "PromptText=The text to ask with.  Any variables used will be expanded.",
    "PromptFor=Ask for a file or for a directory",
    "VekVariable=The variable that receives the path",
    "InitialPath=The path that is offered; the variable's present value when this is blank",
    "Filter=The kinds of file to choose from, as pairs of name and pattern",
    "MustExist=Ask again for a path that does not exist",
    "FailOnCancel=Fail when the user cancels; the variable is not changed either way",
};

}  // namespace

const ActionClass TCustomVekpromptForFileOrDirAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekpromptForFileOrDirAction",
    .actionName = "Prompt for File or Directory",
    .helpTopicID = 2490,
    .quickHelpFilename = "Plugins\\PromptForFileOrDir.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomVekpromptForFileOrDirAction::Validate(IVekActionValidationError& errors) {
  if (!VekVariable.empty()) return true;
  errors.AddError("Variable", "The variable name has not been set");
  return false;
}

bool TCustomVekpromptForFileOrDirAction::Execute() {
  if (!IsInteractive()) return false;
  std::string prompt, variable, path;
  if (!TryExpandExpression("Prompt Text", PromptText, prompt, false) ||
      !ExpandVariable(VekVariable, variable) ||
      !TryExpandExpression("Initial Path", InitialPath, path, false)) {
    return false;
  }
  if (Trim(path).empty()) path = IsVariableDefined(variable) ? VariantToText(GetVariableValue(variable)) : "";
  if (!Choose(prompt, path)) return !FailOnCancel && !StopSignalled();
  Store(variable, path);
  return true;
}

bool TCustomVekpromptForFileOrDirAction::Choose(const std::string& prompt, std::string& path) {
  const bool wantsFile = PromptFor == TPromptForFileOrDir::pfFile;
  const std::string_view usual = wantsFile ? "Select File" : "Select Directory";
  const std::string_view title = Trim(prompt).empty() ? usual : std::string_view(prompt);
  const auto mustExist = MustExist ? TMustExist::Yes : TMustExist::No;
  return wantsFile ? VekBrowseForFileRuntime(*this, title, path, Filter, {}, mustExist)
                   : VekBrowseForDirectoryRuntime(*this, title, path, mustExist);
}
