#include "fileops/BActions1.h"

#include "base/WindowsPath.h"
#include "coreapi/Vekutils.h"
#include "platform/Entries.h"
#include "platform/Environment.h"
#include "platform/FileAttributes.h"
#include "platform/Folders.h"
#include "platform/Platform.h"
#include "platform/Presence.h"

namespace {

constexpr int32_t kFileOrDirectoryKey = 0;

constexpr std::string_view kHelp[] = {
    "Force=Use Force Directories to create a directory and all parent directories that do not already exist.",
};

constexpr std::string_view kExistsHidden[] = {"FailIfExists"};
constexpr std::string_view kExistsAliases[] = {"FileOrDirectory=File or Directory"};
constexpr std::string_view kExistsHelp[] = {
    "FileOrDirectory=The File or Directory to check for, wildcards may not be used!",
};

constexpr std::string_view kCreateAliases[] = {"FileOrDirectory=Directory"};
constexpr std::string_view kCreateHelp[] = {"FileOrDirectory=The Directory to Create."};

constexpr std::string_view kDeleteHidden[] = {"Force"};
constexpr std::string_view kDeleteAliases[] = {
    "FileOrDirectory=Directory",
    "DeleteTree=Delete Tree",
    "DeleteReadOnly=Delete Read Only Directories",
    "DeleteHidden=Delete Hidden Directories",
};
constexpr std::string_view kDeleteHelp[] = {
    "FileOrDirectory=The Directory to delete",
    "DeleteTree=Set this if the directory is not empty",
    "DeleteReadOnly=Delete Read Only Files, only has any affect when Delete Tree is True",
    "DeleteHidden=Delete Hidden Directories",
};

}  // namespace

const ActionClass TFileOrDirectoryAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TFileOrDirectoryAction",
    .help = kHelp,
    .properties = TFileOrDirectoryAction::kPublished,
};

const ActionClass TCustomFileExistsAction::kClass{
    .inherited = &TFileOrDirectoryAction::kClass,
    .className = "TCustomFileExistsAction",
    .actionName = "Check if File Exists",
    .helpTopicID = 551,
    .quickHelpFilename = "Plugins\\CheckFileExists.html",
    .aliases = kExistsAliases,
    .help = kExistsHelp,
    .hiddenProperties = kExistsHidden,
};

const ActionClass TCustomCreateDirectoryAction::kClass{
    .inherited = &TFileOrDirectoryAction::kClass,
    .className = "TCustomCreateDirectoryAction",
    .actionName = "Create Directory",
    .helpTopicID = 552,
    .quickHelpFilename = "Plugins\\CreateDirectory.html",
    .aliases = kCreateAliases,
    .help = kCreateHelp,
    .flags = 17,
};

const ActionClass TCustomDeleteDirectoryAction::kClass{
    .inherited = &TFileOrDirectoryAction::kClass,
    .className = "TCustomDeleteDirectoryAction",
    .actionName = "Delete Directory",
    .helpTopicID = 553,
    .quickHelpFilename = "Plugins\\DeleteDirectory.html",
    .aliases = kDeleteAliases,
    .help = kDeleteHelp,
    .hiddenProperties = kDeleteHidden,
    .flags = 1,
};

void TFileOrDirectoryAction::SetFileOrDirectory(const WideString& value) {
  if (value != fileOrDirectory_) UpdateKeyValue(kFileOrDirectoryKey, fileOrDirectory_, value);
}

std::string TFileOrDirectoryAction::GetDescriptionKeyValue(int32_t /*index*/) const {
  return fileOrDirectory_;
}

void TFileOrDirectoryAction::SetDescriptionKeyValue(int32_t /*index*/, std::string_view value) {
  fileOrDirectory_ = WideString(std::string(value));
}

bool TFileOrDirectoryAction::Validate(IVekActionValidationError& errors) {
  if (!fileOrDirectory_.empty()) return true;
  const Complaint complaint = WhenEmpty();
  errors.AddError(complaint.title, complaint.message);
  return false;
}

void TCustomFileExistsAction::SetFailIfExists(bool value) {
  ExistsMode = value ? TFileExistsMode::feFailIfExists : TFileExistsMode::feFailIfMissing;
}

bool TCustomFileExistsAction::Execute() {
  try {
    const std::string path = ExpandExpression(FileOrDirectory());
    SendMessage("Checking for " + path);
    const Platform& platform = GetPlatform();
    const bool exists = platform.entries->FileExists(path) || platform.folders->Exists(path);
    if (!Variable.empty()) SetVariable(Variable, exists);
    SendMessage(exists ? "File or Folder Exists" : "File or Folder is missing");
    return ResultFor(exists);
  } catch (const std::exception& error) {
    ReportError(error.what());
    return false;
  }
}

bool TCustomFileExistsAction::ResultFor(bool exists) const {
  switch (ExistsMode) {
    case TFileExistsMode::feFailIfExists:
      return !exists;
    case TFileExistsMode::feFailIfMissing:
      return exists;
    case TFileExistsMode::feIgnore:
      break;
  }
  return true;
}

bool TCustomCreateDirectoryAction::Execute() {
  constexpr std::string_view kFailed = "Unable to Create directory : ";
  std::string folder;
  try {
    folder = Trim(ExpandExpression(FileOrDirectory(), true));
    if (folder.empty()) return true;
    const bool created = GetPlatform().folders->Exists(folder) || CreateFolder(folder);
    SendStatusMessage({std::string(created ? "Created directory : " : kFailed) + folder});
    return created;
  } catch (const std::exception& error) {
    SendStatusMessage({std::string(kFailed) + folder, error.what()});
    return false;
  }
}

bool TCustomCreateDirectoryAction::CreateFolder(const std::string& folder) const {
  Folders& folders = *GetPlatform().folders;
  return (Force ? folders.CreateWithParents(folder) : folders.Create(folder)).ok;
}

TCustomDeleteDirectoryAction::TCustomDeleteDirectoryAction(IVekActionHost& host)
    : TFileOrDirectoryAction(host) {
  DeleteTree = true;
}

bool TCustomDeleteDirectoryAction::Execute() {
  std::string folder;
  const auto report = [&](std::string_view reason) {
    // The log of deleted files has named the folder.
    SendStatusMessage(
        {LogDeletedFiles ? "An error occured : " : "Unable to Delete Directory : " + folder, reason});
    return false;
  };
  try {
    folder = ExpandExpression(FileOrDirectory());
    if (!FolderMayExist(GetPlatform(), folder)) return true;
    if (!MayRemoveTree(folder)) return false;
    const SysResult removed = Remove(folder);
    return removed ? true : report(SysErrorMessage(removed.code));
  } catch (const std::exception& error) {
    return report(error.what());
  }
}

SysResult TCustomDeleteDirectoryAction::Remove(const std::string& folder) {
  std::string target;
  if (const SysResult left = LeaveFolder(folder, target); !left) return left;
  ClearAttributes(target);
  if (DeleteTree) {
    if (const SysResult emptied = DelTree(target, AsFolder(GetPlatform(), folder) + "*.*"); !emptied) {
      return emptied;
    }
  }
  if (LogDeletedFiles) SendMessage("Removing directory : " + folder);
  return GetPlatform().folders->Remove(target);
}

/// Makes the root of its drive the current folder, so that the process does not hold the folder open;
/// `target` becomes the path by which it is still found from there. A path through what goes
/// ("folder/sub/..") would lead nowhere once the folder is empty. In full it does not go there, but where a
/// link stands before the dots it leads elsewhere: then it is refused.
SysResult TCustomDeleteDirectoryAction::LeaveFolder(const std::string& folder, std::string& target) const {
  Environment& environment = *GetPlatform().environment;
  Entries& entries = *GetPlatform().entries;
  const bool isRooted = IsPathDelimiter(folder[0]) || NamesDrive(folder);
  target = isRooted ? folder : AsFolder(GetPlatform(), environment.CurrentFolder()) + folder;
  const std::string full = environment.FullPath(target);
  const std::string root = NamesDrive(folder) ? folder.substr(0, 2) + '\\' : std::string(RootOf(full));
  if (entries.Identity(full) == entries.Identity(target)) {
    target = full;
  } else if (NamePart(WithoutTrailingDelimiter(target)) == "..") {
    return SysResult::Failure(Win32Error::InvalidName);
  }
  environment.SetCurrentFolder(root);
  return {};
}

void TCustomDeleteDirectoryAction::ClearAttributes(const std::string& folder) const {
  if (!DeleteReadOnly && !DeleteHidden) return;
  Entries& entries = *GetPlatform().entries;
  uint32_t attributes = 0;
  if (!entries.GetAttributes(folder, attributes)) return;
  if (DeleteReadOnly) attributes &= ~FileAttribute::ReadOnly;
  if (DeleteHidden) attributes &= ~FileAttribute::Hidden;
  entries.SetAttributes(folder, attributes);
}

/// Deletes all that the folder holds, shown under the folder of the mask.
SysResult TCustomDeleteDirectoryAction::DelTree(const std::string& folder, const std::string& mask) {
  EmptyingOptions options{.deleteReadOnly = DeleteReadOnly, .shownAs = SearchedFolder(GetPlatform(), mask)};
  const std::string below = options.shownAs.back() + std::string(NamePart(mask));
  options.watch = [&](EmptyingStep step, std::string_view path) {
    if (LogDeletedFiles) {
      const std::string shown(path);
      if (step == EmptyingStep::Enter) SendMessage("Recursing directory " + shown + below + "...");
      if (step == EmptyingStep::Remove) SendMessage("Removing directory " + shown);
      if (step == EmptyingStep::Delete) SendMessage("Deleting " + shown + "...");
    }
    return !StopSignalled();
  };
  return GetPlatform().folders->Empty(folder, options);
}
