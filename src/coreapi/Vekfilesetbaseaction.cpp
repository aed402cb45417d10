#include "coreapi/Vekfilesetbaseaction.h"

#include "coreapi/Vekactionhost.h"

namespace {

constexpr int32_t kFileSetNameKey = 0;

constexpr std::string_view kAliases[] = {"[File Set]", "FileSetName=FileSet"};
constexpr std::string_view kHelp[] = {"FileSetName=The name of the project's file set"};

}  // namespace

const ActionClass TFileSetBaseAction::kClass{.inherited = &TVekAction::kClass,
                                             .className = "TFileSetBaseAction",
                                             .aliases = kAliases,
                                             .help = kHelp,
                                             .properties = kFileSetBaseProperties};

TFileSetBaseAction::~TFileSetBaseAction() = default;

void TFileSetBaseAction::SetFileSetName(std::string_view value) {
  UpdateKeyValue(kFileSetNameKey, fileSetName_, value);
}

std::string TFileSetBaseAction::GetDescriptionKeyValue(int32_t index) const {
  return index == kFileSetNameKey ? fileSetName_ : std::string();
}

void TFileSetBaseAction::SetDescriptionKeyValue(int32_t index, std::string_view value) {
  if (index == kFileSetNameKey) fileSetName_ = value;
}

bool TFileSetBaseAction::Validate(IVekActionValidationError& errors) {
  if (!fileSetName_.empty()) return true;
  errors.AddError("FileSet", "FileSet name has not been set");
  return false;
}

bool TFileSetBaseAction::Execute() {
  IVekFileSet* fileSet = FindFileSet(GetProjectObjectAPI(), fileSetName_);
  if (!fileSet) {
    GetActionContext().ReportError(FileSetNotFound(fileSetName_));
    return false;
  }
  try {
    return ExecuteFileSet(*fileSet);
  } catch (const std::exception& error) {
    GetActionContext().ReportError(error.what());
    return false;
  }
}
