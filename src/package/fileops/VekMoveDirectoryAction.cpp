#include "fileops/VekMoveDirectoryAction.h"

#include "platform/Entries.h"
#include "platform/Platform.h"

const ActionClass TCustomVekMoveDirectoryAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekMoveDirectoryAction",
    .actionName = "Move Directory",
    .helpTopicID = 3110,
    .quickHelpFilename = "Plugins\\MoveDirectory.html",
};

bool TCustomVekMoveDirectoryAction::Validate(IVekActionValidationError& errors) {
  if (Directory.empty()) errors.AddError("Source directory", "A source directory has not been specified");
  if (DestinationDirectory.empty()) {
    errors.AddError("Destination directory", "A destination directory has not been specified");
  }
  return !Directory.empty() && !DestinationDirectory.empty();
}

bool TCustomVekMoveDirectoryAction::Execute() {
  std::string source, destination;
  if (!TryExpandExpression("Directory", Directory, source, true)) return false;
  if (!TryExpandExpression("DestinationDirectory", DestinationDirectory, destination, true)) return false;
  if (!MayRemoveTree(source)) return false;

  const SysResult moved = GetPlatform().entries->Move(source, destination, 0);
  if (moved) {
    SendMessage("Directory : " + source + " - moved to : " + destination);
    return true;
  }
  SendMessage("Error moving Directory : " + source + " - to : " + destination);
  SendMessage("Error : " + SysErrorMessage(moved.code));
  return false;
}
