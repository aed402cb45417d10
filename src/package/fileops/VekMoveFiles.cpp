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

/// Takes a target out of the way of the file that is to replace it. Unless that one arrives, the target comes
/// back: a move that fails costs no file.
class DisplacedFile {
 public:
  DisplacedFile(Entries& entries, IVekActionLogMessage& message) : entries_(entries), message_(message) {}
  ~DisplacedFile() {
    if (!aside_.empty() && !entries_.Move(aside_, path_, 0)) Tell();
  }
  DisplacedFile(const DisplacedFile&) = delete;
  DisplacedFile& operator=(const DisplacedFile&) = delete;

  SysResult Displace(const std::string& path) {
    SysResult moved;
    for (int number = 1; number <= kMostNames; ++number) {
      // A short name, because the file's own may leave no room for more.
      const std::string aside = std::string(FolderPart(path)) + ".replaced" + std::to_string(number);
      moved = entries_.Move(path, aside, 0);
      if (moved) {
        path_ = path;
        aside_ = aside;
      }
      if (moved.code != Win32Error::AlreadyExists) break;
    }
    return moved;
  }

  void Delete() {
    if (!aside_.empty() && !entries_.Delete(aside_)) Tell();
    aside_.clear();
  }

 private:
  static constexpr int kMostNames = 100;

  void Tell() const { message_.AddLine(" --> The replaced file is left as : " + aside_); }

  Entries& entries_;
  IVekActionLogMessage& message_;
  std::string path_, aside_;
};

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
  if (IsUnreadable(found)) ReportUnreadable(FolderPart(spec), found.code);
  FoundEntry match;
  // FailIfZeroFiles is about matches that stayed where they were; without a match there is nothing to fail.
  if (!search->Next(match)) return true;

  const std::string folder = SearchedFolder(GetPlatform(), spec);
  const std::string targetFolder = TargetIsDir() ? AsFolder(GetPlatform(), target) : std::string();
  do {
    const std::string targetFile = TargetIsDir() ? targetFolder + match.name : target;
    if (Force && TargetIsDir()) MakeFolderOf(targetFile);
    // A move is not broken off, but the next one need not begin.
    if (StopSignalled() || !MoveMatch(folder + match.name, targetFile, message)) return false;
  } while (search->Next(match));
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

  DisplacedFile displaced(entries, message);
  const bool targetExists = entries.FileExists(target);
  if (StopOnAnyErrors && !entries.FileExists(source)) return report("Source File Does not exist");
  if (targetExists) {
    if (FailIfExists) return report("The target File exists and \"Fail if Exists\" is checked");
    if (const auto reason = PrepareTarget(target)) return report(*reason);
    // To take a target away that is the source would lose the file.
    if (source != target && !AreOneFile(entries, source, target)) {
      const SysResult gone = displaced.Displace(target);
      if (!gone && StopOnAnyErrors) return report(SysErrorMessage(gone.code));
    }
  }
  if (Force && !TargetIsDir()) MakeFolderOf(target);

  const SysResult moved = MoveFile(source, target);
  if (!moved) {
    ++ErrorCount;
    report(SysErrorMessage(moved.code));
    return !StopOnAnyErrors;
  }
  displaced.Delete();
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

SysResult TCustomMoveFilesAction::MoveFile(const std::string& source, const std::string& target) {
  Entries& entries = *GetPlatform().entries;
  if (!TargetIsDir()) return entries.Move(source, target, 0);
  StartProgress("Moving File : ", source, target);
  return entries.Move(source, target, MoveFlag::CopyAllowed | MoveFlag::WriteThrough,
                      [this](uint64_t transferred, uint64_t total) { ShowProgress(transferred, total); });
}
