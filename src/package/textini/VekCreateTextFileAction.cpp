#include "textini/VekCreateTextFileAction.h"

#include "base/WindowsPath.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kAliases[] = {
    "[Create Text File]",
    "FileContents=File Contents",
    "OverwriteExisting=Overwrite Existing File",
    "NewFileName=New Filename",
    "CreateDirectory=Create Directory if required",
};

constexpr std::string_view kHelp[] = {
    "FileContents=This text will be written to the file.  Any variables used will be expanded.",
    "OverwriteExisting=Overwrite existing file if it already exists",
    "NewFileName=The location and name of the new file",
    "CreateDirectory=Automatically create any directories if required",
};

}  // namespace

const ActionClass TCustomVekCreateTextFileAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekCreateTextFileAction",
    .actionName = "Create Text File",
    .helpTopicID = 3220,
    .quickHelpFilename = "Plugins\\CreateTextFile.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomVekCreateTextFileAction::Validate(IVekActionValidationError& errors) {
  if (!NewFileName.empty()) return true;
  errors.AddError("New File Name", "New filename has not been set");
  return false;
}

bool TCustomVekCreateTextFileAction::Execute() {
  std::string fileName;
  if (!TryExpandExpression("NewFileName", NewFileName, fileName, true)) return false;
  if (CreateDirectory && !CreateDirectoryOf(fileName)) return false;

  if (!OverwriteExisting && GetPlatform().entries->FileExists(fileName)) {
    SendMessage("ERROR - File already exists: " + fileName);
    return false;
  }

  std::string contents;
  if (!TryExpandExpression("File Contents", FileContents, contents, false)) return false;
  const SysResult written = GetPlatform().contents->Replace(fileName, contents);
  SendMessage(written ? "File created: " + fileName
                      : "File creation failed: " + SysErrorMessage(written.code));
  return written.ok;
}

/// Creates the missing folders of the file's path; a bare name has none.
bool TCustomVekCreateTextFileAction::CreateDirectoryOf(const std::string& fileName) {
  const std::string directory(DirectoryPart(fileName));
  if (directory.empty()) return true;
  const SysResult created = GetPlatform().folders->CreateWithParents(directory);
  if (!created) {
    SendMessage("Failed to create directory \"" + directory + "\": " + SysErrorMessage(created.code));
  }
  return created.ok;
}
