#include "host/engine/RunProjectAction.h"

#include "host/engine/BuildContext.h"
#include "host/engine/NestedProject.h"
#include "host/project/ProjectVariables.h"
#include "host/project/Quoted.h"

namespace {

constexpr int32_t kProjectFileKey = 0;

constexpr std::string_view kAliases[] = {"[Run Project]", "ProjectFile=Project File", "Variables=Variables",
                                         "ExportVariables=Export Variables"};
constexpr std::string_view kHelp[] = {
    "ProjectFile=The project to execute; its steps stand below this one in the log",
    "Variables=Variables for that project, a line NAME=VALUE each, which hold over what it declares",
    "ExportVariables=Variables of that project whose values are taken over when it has ended"};

/// This type is the host's own, and so is the host that it runs in.
BuildContext& Build(IVekActionHost& host) { return dynamic_cast<BuildContext&>(host); }

}  // namespace

const ActionClass TCustomVekRunProject::kClass{.inherited = &TVekAction::kClass,
                                               .className = "TCustomVekRunProject",
                                               .actionName = "Run Project",
                                               .aliases = kAliases,
                                               .help = kHelp};

TCustomVekRunProject::TCustomVekRunProject(IVekActionHost& host) : TVekAction(host) {}
TCustomVekRunProject::~TCustomVekRunProject() = default;

void TCustomVekRunProject::SetProjectFile(std::string_view value) {
  UpdateKeyValue(kProjectFileKey, projectFile_, value);
}

std::string TCustomVekRunProject::GetDescriptionKeyValue(int32_t index) const {
  return index == kProjectFileKey ? projectFile_ : std::string();
}

void TCustomVekRunProject::SetDescriptionKeyValue(int32_t index, std::string_view value) {
  if (index == kProjectFileKey) projectFile_ = value;
}

bool TCustomVekRunProject::Validate(IVekActionValidationError& errors) {
  if (!Trim(projectFile_).empty()) return true;
  errors.AddError("Project File", "The project file has not been set");
  return false;
}

bool TCustomVekRunProject::Execute() {
  std::string file;
  if (!TryExpandExpression("Project File", projectFile_, file, true)) return false;
  try {
    std::vector<VariableDefinition> definitions;
    for (const std::string& line : Variables) {
      if (Trim(line).empty()) continue;
      const size_t equals = line.find('=');
      const std::string name(Trim(std::string_view(line).substr(0, equals)));
      if (equals == std::string::npos || name.empty()) {
        throw EVekError("Variables: " + Quoted(line) + " is not of the form NAME=VALUE");
      }
      definitions.push_back({name, ExpandExpression(line.substr(equals + 1), false), "Variables: " + name});
    }
    nested_ = std::make_unique<NestedProject>(Build(GetActionContext()), file, definitions);
    return true;
  } catch (const std::exception& error) {
    ReportError(error.what());
    return false;
  }
}

std::unique_ptr<NestedProject> TCustomVekRunProject::TakeProject() { return std::move(nested_); }

bool TCustomVekRunProject::TakeOver(NestedProject& nested) {
  bool complete = true;
  for (const std::string& line : ExportVariables) {
    const std::string name(Trim(line));
    if (name.empty()) continue;
    try {
      nested.HandOver(name, Build(GetActionContext()));
    } catch (const EVekError& error) {
      ReportError(std::string("Export Variables: ") + error.what());
      complete = false;
    }
  }
  return complete;
}
