#include "fileops/VekRenameDirectoryAction.h"

#include "base/WindowsPath.h"
#include "coreapi/Vekutils.h"
#include "platform/Entries.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

const ActionClass TCustomRenameDirAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomRenameDirAction",
    .actionName = "Rename File or Directory",
    .helpTopicID = 2460,
    .quickHelpFilename = "Plugins\\RenameDirectory.html",
};

bool TCustomRenameDirAction::Validate(IVekActionValidationError& errors) {
  const bool lacksFolder = RenameDir && SourceDirectory.empty();
  const bool lacksFile = !RenameDir && SourceFile.empty();
  if (lacksFolder) errors.AddError("Directory", "The existing directory has not been set");
  if (lacksFile) errors.AddError("File", "The existing file name has not been set");
  if (NewDirName.empty()) {
    errors.AddError("New name", "The new name of the directory or file has not been set");
  }
  return !lacksFolder && !lacksFile && !NewDirName.empty();
}

bool TCustomRenameDirAction::Execute() {
  const auto source = FindSource();
  std::string name;
  if (!source || !TryExpandExpression("New Name", NewDirName, name, true) || !CheckName(name)) return false;
  if (RenameDir && !MayRemoveTree(*source)) return false;

  const std::string_view folder = RenameDir ? ParentFolder(*source) : FolderPart(*source);
  const SysResult renamed = GetPlatform().entries->Move(*source, AsFolder(GetPlatform(), folder) + name, 0);
  if (!renamed) {
    SendMessage("Rename failed: " + SysErrorMessage(renamed.code));
    return false;
  }
  SendMessage(RenameDir ? "Directory renamed" : "File renamed");
  return true;
}

/// The file or folder, or nothing when its name cannot be expanded or there is none.
std::optional<std::string> TCustomRenameDirAction::FindSource() const {
  std::string source;
  const bool expanded = RenameDir ? TryExpandExpression("Directory Name", SourceDirectory, source, true)
                                  : TryExpandExpression("File Name", SourceFile, source, true);
  if (!expanded) return {};
  const Platform& platform = GetPlatform();
  if (RenameDir ? platform.folders->Exists(source) : platform.entries->FileExists(source)) return source;
  SendMessage(RenameDir ? "Directory doesn't exist" : "File doesn't exist");
  return {};
}

bool TCustomRenameDirAction::CheckName(const std::string& name) const {
  if (name.find_first_of("\\/:") == std::string::npos) return true;
  SendMessage("Error: New name (" + name + ") contains illegal characters");
  SendMessage("Make sure new name does not contain path or drive information (file name only.)");
  return false;
}
