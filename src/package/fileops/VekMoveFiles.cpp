#include "base/WindowsPath.h"
#include "coreapi/Vekfolderwalk.h"
#include "coreapi/Vekutils.h"
#include "fileops/VekCopyMove.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Platform.h"

namespace {

/// Whether two paths that are spelt differently lead to one file under one name.
bool AreOneFile(Entries& entries, const std::string& a, const std::string& b) {
  if (!SameText(NamePart(a), NamePart(b))) return false;
  const auto folderOf = [&entries](const std::string& file) {
    const std::string_view folder = DirectoryPart(file);
    return entries.Identity(folder.empty() ? "." : folder);
  };
  const auto identity = entries.Identity(a);
  return identity && identity == entries.Identity(b) && folderOf(a) == folderOf(b);
}

}  // namespace

const ActionClass TCustomMoveFilesAction::kClass{
    .inherited = &TCustomCopyFilesAction::kClass,
    .className = "TCustomMoveFilesAction",
    .actionName = "Move File(s)",
    .helpTopicID = 555,
    .quickHelpFilename = "Plugins\\MoveFiles.html",
};

bool TCustomMoveFilesAction::Execute() {
  StartRun();
  readOnlyMet_ = false;
  std::string source, target;
  const auto expand = [&] {
    source = Expanded(FileSpec());
    target = Expanded(Target);
  };
  if (!AttemptOrReport(" --> Unable to Move files : ", source, " --> ", expand)) return false;
  if (source.empty() || target.empty()) return true;
  if (!MayRemoveMatches(source)) return false;

  const auto message = CreateStatusMessage();
  message->AddLine("Moving files : " + source + " -> " + target);
  return RunAndReport(message, " Files Moved.", [&] { return MoveMatches(source, target, *message); });
}

bool TCustomMoveFilesAction::MoveMatches(const std::string& spec, const std::string& target,
                                         IVekActionLogMessage& message) {
  constexpr uint32_t kMask = FileAttribute::ReadOnly | FileAttribute::Hidden;
  SysResult found;
  const auto search = GetPlatform().finder->Open(spec, kMask, FindDetail::Names, found);
  FoundEntry match;
  // FailIfZeroFiles is about matches that stayed where they were; without a match there is nothing to fail.
  if (!search->Next(match)) {
    ReportUnreadable(FolderPart(spec), *search);
    return true;
  }

  const std::string folder = SearchedFolder(GetPlatform(), spec);
  const std::string targetFolder = TargetIsDir() ? AsFolder(GetPlatform(), target) : std::string();
  do {
    const std::string sourceFile = folder + match.name;
    const std::string targetFile = TargetIsDir() ? targetFolder + match.name : target;
    if (Force && TargetIsDir()) MakeFolderOf(targetFile, sourceFile);
    // A move is not broken off, but the next one need not begin.
    if (StopSignalled() || !MoveMatch(sourceFile, targetFile, message)) return false;
  } while (search->Next(match));
  ReportUnreadable(FolderPart(spec), *search);
  return FilesAffected > 0 || !FailIfZeroFiles;
}

/// Moves one file; false when that ends the run.
bool TCustomMoveFilesAction::MoveMatch(const std::string& source, const std::string& target,
                                       IVekActionLogMessage& message) {
  Entries& entries = *GetPlatform().entries;
  const auto report = [&](const std::string& reason) {
    CountError();
    message.AddLine(" --> Error Moving File : " + source + " -> " + target);
    message.AddLine(" --> " + reason);
    return false;
  };

  const bool targetExists = entries.TargetExists(source, target);
  bool replaces = false;
  if (StopOnAnyErrors && !entries.FileExists(source)) return report("Source File Does not exist");
  if (targetExists) {
    if (FailIfExists) return report("The target File exists and \"Fail if Exists\" is checked");
    if (const auto reason = PrepareTarget(target)) return report(*reason);
    if (source != target && !AreOneFile(entries, source, target)) {
      const SysResult free = entries.CheckReplace(target);
      if (!free && StopOnAnyErrors) return report(SysErrorMessage(free.code));
      replaces = free.ok;
    }
  }
  if (Force && !TargetIsDir()) MakeFolderOf(target, source);

  const SysResult moved = MoveFile(source, target, replaces);
  if (!moved) {
    ++ErrorCount;
    report(SysErrorMessage(moved.code));
    return !StopOnAnyErrors;
  }
  if (ClearAttributes) ClearAttributesOf(target);
  ++FilesAffected;
  return true;
}

/// Makes an existing target writable; answers why the run ends, or nothing when it goes on.
std::optional<std::string> TCustomMoveFilesAction::PrepareTarget(const std::string& target) {
  Entries& entries = *GetPlatform().entries;
  uint32_t attributes = 0;
  if (entries.GetAttributes(target, attributes) && (attributes & FileAttribute::ReadOnly) != 0) {
    readOnlyMet_ = true;
  }
  // One read-only target stands for all that follow it in the run.
  if (!readOnlyMet_) return {};
  if (!OverwriteReadOnly) return "The target File is marked \"Read Only\"";
  entries.SetAttributes(target, FileAttribute::Normal);
  return {};
}

/// The target, where it is to be replaced, makes way in the same step.
SysResult TCustomMoveFilesAction::MoveFile(const std::string& source, const std::string& target,
                                           bool replaces) {
  Entries& entries = *GetPlatform().entries;
  const uint32_t replacing = replaces ? MoveFlag::ReplaceExisting : 0;
  if (!TargetIsDir()) return entries.Move(source, target, replacing);
  StartProgress("Moving File : ", source, target);
  return entries.Move(source, target, MoveFlag::CopyAllowed | MoveFlag::WriteThrough | replacing,
                      [this](uint64_t transferred, uint64_t total) { ShowProgress(transferred, total); });
}
