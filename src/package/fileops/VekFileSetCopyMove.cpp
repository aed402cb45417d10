#include "fileops/VekFileSetCopyMove.h"

#include "base/WindowsPath.h"
#include "coreapi/Vekutils.h"
#include "fileops/VekPercentage.h"
#include "platform/Environment.h"
#include "platform/FileAttributes.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kSeparator = "\r\n";

constexpr std::string_view kAliases[] = {
    "[FileSet Copy/Move]",
    "DestinationFolder=Destination Folder",
    "RecreateHierarchy=Recreate Hierarchy",
    "Move=Move Files",
    "FailIfFileNotFound=Fail If File Not Found",
    "RefreshBefore=Refresh File List Before",
    "OverwriteMode=Overwrite Mode",
    "ClearAttributes=Clear Attributes",
};

constexpr std::string_view kHelp[] = {
    "DestinationFolder=The folder that the files are copied or moved into",
    "RecreateHierarchy=Keep the path of each file below the base directory of the FileSet",
    "Move=Move the files instead of copying them",
    "FailIfFileNotFound=Fail when a file of the list does not exist, instead of skipping it",
    "RefreshBefore=Rebuild the list of files before starting",
    "OverwriteMode=What to do when the destination file exists",
    "ClearAttributes=Clear the attribute flags of the copied or moved files",
};

/// The text with the first occurrence of the folder, letter case aside, exchanged; a delimiter has to follow
/// it and goes with it. What stands below is spelt as the replacement, which ends in a delimiter, is.
std::string ReplaceFolder(const std::string& file, std::string_view folder, const std::string& replacement) {
  folder = WithoutTrailingDelimiter(folder);
  const std::string_view text = file;
  for (size_t start = 0; start + folder.size() < text.size(); ++start) {
    const size_t end = start + folder.size();
    if (!IsPathDelimiter(text[end]) || !SameText(text.substr(start, folder.size()), folder)) continue;
    const std::string below = WithDelimiters(text.substr(end + 1), replacement.back());
    return std::string(text.substr(0, start)).append(replacement).append(below);
  }
  return file;
}

}  // namespace

const ActionClass TCustomVekFileSetCopyMoveAction::kClass{
    .inherited = &TFileSetBaseAction::kClass,
    .className = "TCustomVekFileSetCopyMoveAction",
    .actionName = "FileSet Copy/Move",
    .quickHelpFilename = "Plugins\\FileSetCopyMove.html",
    .aliases = kAliases,
    .help = kHelp,
};

bool TCustomVekFileSetCopyMoveAction::Validate(IVekActionValidationError& errors) {
  const bool complete = TFileSetBaseAction::Validate(errors);
  if (!DestinationFolder.empty()) return complete;
  errors.AddError("Destination Folder", "The destination folder has not been set");
  return false;
}

void TCustomVekFileSetCopyMoveAction::TerminateAction() {
  TFileSetBaseAction::TerminateAction();
  SendMessage("Terminating...");
  cancel_ = true;
}

void TCustomVekFileSetCopyMoveAction::StartRun() {
  RearmStop(cancel_);
  totalBytes_ = finishedBytes_ = fileBytes_ = 0;
  lastPercent_ = 0;
  progressText_.clear();
  madeFolder_.clear();
}

bool TCustomVekFileSetCopyMoveAction::ExecuteFileSet(IVekFileSet& fileSet) {
  StartRun();
  if (RefreshBefore) {
    SendMessage("Refreshing file list...");
    fileSet.Refresh();
  }
  totalBytes_ = fileSet.GetTotalSize();

  std::string destinationFolder, baseFolder;
  if (!TryExpandExpression("Destination Folder", DestinationFolder, destinationFolder, true)) return false;
  destinationFolder = AsFolder(GetPlatform(), destinationFolder);
  if (!TryExpandExpression("FileSet Base Dir", fileSet.GetBaseDirectory(), baseFolder, true)) return false;
  // As the files are spelt.
  baseFolder = WithDelimiters(baseFolder, GetPlatform().environment->PathDelimiter(baseFolder));

  if (Move && !MayMoveFrom(baseFolder, fileSet)) return false;
  const StringList files = SplitAt(fileSet.GetFileList(kSeparator), kSeparator);
  SendMessage((Move ? "Moving " : "Copying ") + std::to_string(files.size()) + " files...");
  for (const std::string& file : files) {
    if (cancel_) return false;
    if (IsThere(file)) CopyOrMove(file, DestinationOf(file, baseFolder, destinationFolder));
  }
  return true;
}

/// Asks for what the patterns select directly in the base folder.
bool TCustomVekFileSetCopyMoveAction::MayMoveFrom(const std::string& baseFolder, IVekFileSet& fileSet) const {
  for (const std::string& include : fileSet.GetIncludes()) {
    std::string pattern = ExpandExpression(include, true);
    while (pattern.size() > 2 && pattern.starts_with("**") && IsPathDelimiter(pattern[2]))
      pattern.erase(0, 3);
    const std::string name = pattern.substr(0, pattern.find_first_of("\\/"));
    const bool goesDeeper = name.size() < pattern.size();
    if (!goesDeeper && !MayRemoveMatches(AsFolder(GetPlatform(), baseFolder) + name)) return false;
  }
  return true;
}

bool TCustomVekFileSetCopyMoveAction::IsThere(const std::string& file) const {
  if (GetPlatform().entries->FileExists(file)) return true;
  if (FailIfFileNotFound) throw ECopyMoveError("File not found : " + file);
  SendMessage("Skipping file not found : " + file);
  return false;
}

std::string TCustomVekFileSetCopyMoveAction::DestinationOf(const std::string& file,
                                                           const std::string& baseFolder,
                                                           const std::string& destinationFolder) const {
  if (RecreateHierarchy) {
    // The base has to occur in its own letter case; which occurrence is exchanged is found without it.
    if (file.find(baseFolder) != std::string::npos) return ReplaceFolder(file, baseFolder, destinationFolder);
    SendMessage(file +
                " not contained within FileSet base directory. Cannot recreate hierarchy. File will be "
                "copied to root of target directory.");
  }
  return destinationFolder + std::string(NamePart(file));
}

/// Raises what goes wrong.
void TCustomVekFileSetCopyMoveAction::CopyOrMove(const std::string& source, const std::string& destination) {
  Entries& entries = *GetPlatform().entries;
  progressText_ = (Move ? "Moving " : "Copying ") + source + " to " + destination + "...";
  SendMessage(progressText_);
  lastPercent_ = Percentage(finishedBytes_, totalBytes_);
  SendProgress(progressText_, lastPercent_);

  const std::string_view folder = DirectoryPart(destination);
  if (!folder.empty() && folder != madeFolder_ &&
      GetPlatform().folders->CreateWithParents(folder, DirectoryPart(source)))
    madeFolder_ = folder;
  if (entries.TargetExists(source, destination) && !MakeRoom(destination)) return;

  const SysResult done = Transfer(source, destination);
  if (!done) throw ECopyMoveError(SystemMessage("Error : Unable to copy file. Received ", done));
  if (ClearAttributes) {
    const SysResult cleared = entries.SetAttributes(destination, 0);
    if (!cleared) {
      throw ECopyMoveError(
          SystemMessage("Error : Could not clear attributes on destination file. Received ", cleared));
    }
  }
  finishedBytes_ += fileBytes_;
}

/// Sees to a destination that exists; false when it is to stay.
bool TCustomVekFileSetCopyMoveAction::MakeRoom(const std::string& destination) {
  if (OverwriteMode == TCopyOverwriteMode::owFail) {
    throw ECopyMoveError("Error : Destination file " + destination + " already exists.");
  }
  if (OverwriteMode == TCopyOverwriteMode::owIgnore) {
    SendMessage("(Destination file already exists. Skipping.)");
    return false;
  }

  SendMessage("Overwriting destination file " + destination);
  Entries& entries = *GetPlatform().entries;
  uint32_t attributes = 0;
  SysResult writable = entries.GetAttributes(destination, attributes);
  if (writable && (attributes & FileAttribute::ReadOnly) != 0) {
    if (OverwriteMode == TCopyOverwriteMode::owOverwrite) {
      throw ECopyMoveError("Error : Destination file " + destination + " is read only.");
    }
    writable = entries.SetAttributes(destination, attributes & ~FileAttribute::ReadOnly);
  }
  if (!writable) {
    throw ECopyMoveError(
        SystemMessage("Error : Unable to write to destination file " + destination + ". ", writable));
  }
  return true;
}

SysResult TCustomVekFileSetCopyMoveAction::Transfer(const std::string& source,
                                                    const std::string& destination) {
  Entries& entries = *GetPlatform().entries;
  const auto progress = [this](uint64_t transferred, uint64_t size) { ShowProgress(transferred, size); };
  fileBytes_ = 0;
  if (Move) {
    // A move that is no more than a new name tells nothing of its progress.
    entries.GetSize(source, fileBytes_);
    // Only this mode replaces: with owReadOnly an existing file is made writable and then stands in the way.
    const uint32_t replace = OverwriteMode == TCopyOverwriteMode::owOverwrite ? MoveFlag::ReplaceExisting : 0;
    return entries.Move(source, destination, MoveFlag::CopyAllowed | MoveFlag::WriteThrough | replace,
                        progress);
  }
  return entries.Copy(source, destination,
                      {.failIfExists = OverwriteMode == TCopyOverwriteMode::owFail,
                       .cancel = &cancel_,
                       .progress = progress});
}

void TCustomVekFileSetCopyMoveAction::ShowProgress(uint64_t transferred, uint64_t size) {
  fileBytes_ = size;
  const int32_t percent = Percentage(finishedBytes_ + transferred, totalBytes_);
  if (percent == lastPercent_) return;
  lastPercent_ = percent;
  SendProgress(progressText_, percent);
}

std::string TCustomVekFileSetCopyMoveAction::SystemMessage(std::string_view text, SysResult result) const {
  return std::string(text) + SysErrorMessage(result.code);
}
