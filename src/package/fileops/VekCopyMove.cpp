#include "fileops/VekCopyMove.h"

#include "base/WindowsPath.h"
#include "coreapi/Vekfolderwalk.h"
#include "coreapi/Vekutils.h"
#include "fileops/VekPercentage.h"
#include "platform/Environment.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

namespace {

constexpr int32_t kFileSpecKey = 0;

constexpr std::string_view kAliases[] = {
    "[Misc]",
    "Force=Force Directories",
    "FileSpec=File Specification",
    "Target=Destination",
    "TargetIsDir=Destination Is Directory",
    "FailIfExists=Fail if Exists",
    "OverwriteReadOnly=Overwrite Read Only",
    "Recurse",
    "ClearAttributes=Clear Attributes",
};

constexpr std::string_view kHelp[] = {
    "Force=Use Force Directories to create a directory and all parent directories that do not already exist.",
    "FileSpec=The file specification of the files to copy. Wildcards (*, ?) may be used",
    "Target=The Destination File or Directory",
    "TargetIsDir=Specifies that the Destination Is a Directory",
    "FailIfExists=Fail if the target file Exists",
    "OverwriteReadOnly=Overwrite Read Only Files",
    "Recurse=Resurse Sub Directories",
    "ClearAttributes=Clear the copied/moved files attribute flags after the copy/move",
};

constexpr std::string_view kHidden[] = {"ErrorCount"};

/// Also one in a folder's name, where it means nothing.
bool ContainsWildcard(std::string_view text) { return text.find_first_of("*?") != std::string_view::npos; }

/// What the names in a folder are added to; that of no folder is the root.
std::string StartOfFolder(const Platform& platform, std::string_view folder) {
  return std::string(WithoutTrailingDelimiter(folder)) + platform.environment->PathDelimiter(folder);
}

}  // namespace

const ActionClass TCustomCopyFilesAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomCopyFilesAction",
    .actionName = "Copy File(s)",
    .helpTopicID = 554,
    .quickHelpFilename = "Plugins\\CopyFiles.html",
    .aliases = kAliases,
    .help = kHelp,
    .hiddenProperties = kHidden,
};

/// One run of a copy.
struct TCustomCopyFilesAction::CopyRun {
  IVekActionLogMessage& message;
  const std::string& target;
  TFolderWalk walk;
  std::optional<EntryIdentity> targetIdentity;  // known once the target exists

  /// A target within the source would be copied into itself without end.
  bool IsTarget(Entries& entries, const std::string& folder) {
    if (!targetIdentity) targetIdentity = entries.Identity(target);
    return targetIdentity && targetIdentity == entries.Identity(folder);
  }
};

void TCustomCopyFilesAction::SetFileSpec(std::string_view value) {
  if (value == fileSpec_) return;
  const bool hasWildcard = ContainsWildcard(value);
  UpdateKeyValue(kFileSpecKey, fileSpec_, value);
  if (hasWildcard) SetTargetIsDir(true);
}

void TCustomCopyFilesAction::SetTargetIsDir(WordBool value) {
  targetIsDir_ = value;
  if (!value) recurse_ = false;
}

void TCustomCopyFilesAction::SetRecurse(WordBool value) {
  recurse_ = value;
  if (value) targetIsDir_ = true;
}

std::string TCustomCopyFilesAction::GetDescriptionKeyValue(int32_t /*index*/) const { return fileSpec_; }

void TCustomCopyFilesAction::SetDescriptionKeyValue(int32_t /*index*/, std::string_view value) {
  fileSpec_ = WideString(std::string(value));
}

bool TCustomCopyFilesAction::Validate(IVekActionValidationError& errors) {
  if (fileSpec_.empty()) errors.AddError("File Spec", "The file spec has not been set");
  if (Target.empty()) errors.AddError("Target", "The target file/directory has not been set");
  return !fileSpec_.empty() && !Target.empty();
}

void TCustomCopyFilesAction::StartRun() {
  FilesAffected = 0;
  ErrorCount = 0;
  RearmStop(cancel_);
  copyOptions_.failIfExists = FailIfExists;
  madeFolder_.clear();
}

std::string TCustomCopyFilesAction::Expanded(const WideString& text) const {
  return std::string(Trim(ExpandExpression(text)));
}

/// Sends the message with the count at its end, also when the work raises.
bool TCustomCopyFilesAction::RunAndReport(const std::shared_ptr<IVekActionLogMessage>& message,
                                          std::string_view summary, const std::function<bool()>& work) {
  const auto report = [&] {
    message->AddLine(std::to_string(FilesAffected).append(summary));
    SendStatusMessage(message);
  };
  bool result = false;
  try {
    result = work();
  } catch (...) {
    report();
    throw;
  }
  report();
  return result;
}

/// Makes the folder that a file is to stand in, and its parents; what fails shows when the file is written.
void TCustomCopyFilesAction::MakeFolderOf(const std::string& target, const std::string& source) {
  const std::string_view folder = DirectoryPart(target);
  if (folder.empty() || folder == madeFolder_) return;
  if (GetPlatform().folders->CreateWithParents(folder, DirectoryPart(source))) madeFolder_ = folder;
}

/// The file has arrived, so that attributes that stay do not fail the step.
void TCustomCopyFilesAction::ClearAttributesOf(const std::string& target) const {
  const SysResult cleared = GetPlatform().entries->SetAttributes(target, FileAttribute::Normal);
  if (!cleared)
    ReportError("Cannot clear the attributes of " + target + ": " + SysErrorMessage(cleared.code));
}

void TCustomCopyFilesAction::StartProgress(std::string_view what, const std::string& source,
                                           const std::string& target) {
  lastPercent_ = 0;
  progressText_.assign(what).append(source).append(" to : ").append(target);
  SendProgress(progressText_, 0);
}

void TCustomCopyFilesAction::ShowProgress(uint64_t transferred, uint64_t total) {
  const int32_t percent = Percentage(transferred, total);
  if (percent == lastPercent_) return;
  lastPercent_ = percent;
  SendProgress(progressText_, percent);
}

bool TCustomCopyFilesAction::Execute() {
  StartRun();
  std::string source, target;
  const auto expand = [&] {
    source = Expanded(fileSpec_);
    if (!source.empty()) target = Expanded(Target);
  };
  if (!AttemptOrReport("Unable to Copy files : ", source, "", expand)) return false;
  if (source.empty() || target.empty()) {
    SendMessage(source.empty() ? "Error: No source file specified." : "Error: No target file specified.");
    return false;
  }

  const auto message = CreateStatusMessage();
  message->AddLine("Copying files : " + source + " -> " + target);
  return RunAndReport(message, " Files Copied.", [&] {
    const Platform& platform = GetPlatform();
    const auto unreadable = [this](std::string_view folder, Win32Error code) {
      ReportUnreadable(folder, code);
    };
    CopyRun run{*message,
                target,
                TFolderWalk(*platform.entries, *platform.finder, FolderLinks::Follow, unreadable),
                {}};
    return CopyTree(run, source, target) && (FilesAffected > 0 || !FailIfZeroFiles);
  });
}

/// Copies the matches of one folder and, when asked, of the folders below it; false when a match of this
/// folder failed.
bool TCustomCopyFilesAction::CopyTree(CopyRun& run, const std::string& spec, const std::string& target) {
  // A bare name stands for a file in the root, though it is looked for in the current folder.
  const std::string folder = StartOfFolder(GetPlatform(), SearchedFolder(GetPlatform(), spec));
  if (!CopyMatches(run, spec, folder, target)) return false;
  if (recurse_) CopySubFolders(run, folder, NamePart(spec), target);
  return true;
}

bool TCustomCopyFilesAction::CopyMatches(CopyRun& run, const std::string& spec, const std::string& folder,
                                         const std::string& target) {
  SysResult found;
  const auto search = GetPlatform().finder->Open(spec, FileAttribute::AnyFile, FindDetail::Names, found);
  const bool takesAll = ContainsWildcard(spec);
  std::string sourceFile = folder;
  std::string targetFile = targetIsDir_ ? StartOfFolder(GetPlatform(), target) : target;
  const size_t targetLength = targetFile.size();
  for (FoundEntry match; search->Next(match);) {
    if ((match.attributes & FileAttribute::Directory) == 0) {
      sourceFile.replace(folder.size(), std::string::npos, match.name);
      if (targetIsDir_) targetFile.replace(targetLength, std::string::npos, match.name);
      if (Force) MakeFolderOf(targetFile, sourceFile);
      if (!CopyFile(sourceFile, targetFile, run.message)) return false;
      ++FilesAffected;
    }
    if (!takesAll) break;
  }
  ReportUnreadable(folder, *search);
  return true;
}

void TCustomCopyFilesAction::CopySubFolders(CopyRun& run, const std::string& folder, std::string_view mask,
                                            const std::string& target) {
  const std::string targetFolder = StartOfFolder(GetPlatform(), target);
  run.walk.ForEachFolder(folder, FileAttribute::Directory, [&](const std::string& name) {
    const std::string subFolder = folder + name;
    if (run.IsTarget(*GetPlatform().entries, subFolder)) {
      run.message.AddLine("Skipped, because it is the target : " + subFolder);
    } else {
      // A failure ends the work in that folder alone.
      CopyTree(run, (subFolder + folder.back()).append(mask), targetFolder + name);
    }
    return !cancel_;
  });
}

bool TCustomCopyFilesAction::CopyFile(const std::string& source, const std::string& target,
                                      IVekActionLogMessage& message) {
  Entries& entries = *GetPlatform().entries;
  const auto refuse = [&](const std::string& reason) {
    CountError();
    message.AddLine("Failed to copy File : " + source + " -> " + target);
    message.AddLine(reason);
    return false;
  };

  if (entries.TargetExists(source, target)) {
    if (FailIfExists) return refuse("File Already Exists!");
    uint32_t attributes = 0;
    if (entries.GetAttributes(target, attributes) && (attributes & FileAttribute::ReadOnly) != 0) {
      if (!OverwriteReadOnly) return refuse("File Already Exists and is marked as Read Only");
      entries.SetAttributes(target,
                            ClearAttributes ? FileAttribute::Normal : attributes - FileAttribute::ReadOnly);
    }
  }
  StartProgress("Copying File : ", source, target);
  const SysResult copied = entries.Copy(source, target, copyOptions_);
  if (!copied) return refuse("Win32 Error : " + SysErrorMessage(copied.code));
  if (ClearAttributes) ClearAttributesOf(target);
  return true;
}
