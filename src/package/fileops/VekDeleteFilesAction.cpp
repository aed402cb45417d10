#include "fileops/VekDeleteFilesAction.h"

#include "base/WindowsPath.h"
#include "coreapi/Vekfolderwalk.h"
#include "coreapi/Vekutils.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Platform.h"

namespace {

constexpr int32_t kFileSpecKey = 1;

constexpr std::string_view kAliases[] = {
    "[Files]",
    "FileSpec=File Specification",
    "DeleteReadOnly=Delete Read Only Files",
    "DeleteHidden=Delete Hidden Files",
    "FailIfNoFile=Fail If No File",
};

constexpr std::string_view kHelp[] = {
    "FileSpec=File Specification, can include wilde cards (* or ?)",
    "DeleteReadOnly=Delete Read Only Files",
    "DeleteHidden=Delete Hidden Files",
    "FailIfNoFile=Fail if no file to Delete",
};

}  // namespace

const ActionClass TCustomDeleteFilesAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomDeleteFilesAction",
    .actionName = "Delete File(s)",
    .helpTopicID = 550,
    .quickHelpFilename = "Plugins\\DeleteFiles.html",
    .aliases = kAliases,
    .help = kHelp,
};

void TCustomDeleteFilesAction::SetFileSpec(std::string_view value) {
  UpdateKeyValue(kFileSpecKey, fileSpec_, value);
}

std::string TCustomDeleteFilesAction::GetDescriptionKeyValue(int32_t /*index*/) const { return fileSpec_; }

void TCustomDeleteFilesAction::SetDescriptionKeyValue(int32_t /*index*/, std::string_view value) {
  fileSpec_ = value;
}

bool TCustomDeleteFilesAction::Validate(IVekActionValidationError& errors) {
  if (!fileSpec_.empty()) return true;
  errors.AddError("File Spec", "The file spec has not been set");
  return false;
}

bool TCustomDeleteFilesAction::Execute() {
  filesAffected_ = 0;
  std::string spec;
  const auto expand = [&] { spec = Trim(ExpandExpression(fileSpec_, true)); };
  if (!AttemptOrReport("Unable to Delete file : ", spec, "--> ", expand)) return false;
  if (spec.empty()) return !FailIfNoFile;
  if (!MayRemoveMatches(spec)) return false;

  const auto message = CreateStatusMessage();
  message->AddLine("Deleting files : " + spec);
  bool result = DeleteMatches(spec, *message);
  if (filesAffected_ == 0 && FailIfNoFile) result = false;
  message->AddLine(std::to_string(filesAffected_) + " Files Deleted.");
  SendStatusMessage(message);
  return result;
}

/// Deletes match after match; false when an error or the wish to stop ended it.
bool TCustomDeleteFilesAction::DeleteMatches(const std::string& spec, IVekActionLogMessage& message) {
  SysResult searchResult;
  const auto search =
      GetPlatform().finder->Open(spec, FileAttribute::ReadOnly | FileAttribute::Hidden, searchResult);
  std::string fileName = SearchedFolder(GetPlatform(), spec);
  const size_t folderLength = fileName.size();
  for (FoundEntry match; search->Next(match);) {
    fileName.replace(folderLength, std::string::npos, match.name);
    if (StopSignalled() || !DeleteMatch(fileName, match, message)) return false;
  }
  ReportUnreadable(FolderPart(spec), *search);
  return true;
}

/// Deletes one file; false when that failed with an error.
bool TCustomDeleteFilesAction::DeleteMatch(const std::string& fileName, const FoundEntry& match,
                                           IVekActionLogMessage& message) {
  Entries& entries = *GetPlatform().entries;
  uint32_t attributes = match.attributes;
  if (DeleteReadOnly) attributes &= ~FileAttribute::ReadOnly;
  if (DeleteHidden) attributes &= ~FileAttribute::Hidden;
  if (DeleteReadOnly || DeleteHidden) entries.SetAttributes(fileName, attributes);

  const SysResult deleted = entries.Delete(fileName);
  if (deleted.ok && !entries.EntryExists(fileName)) {
    ++filesAffected_;
    return true;
  }
  // A refusal without an error code leaves the file and says nothing.
  if (!deleted.ok && deleted.code == Win32Error::Success) return true;
  CountError();
  message.AddLine(" --> Error Deleting File : " + fileName);
  message.AddLine(" --> " + SysErrorMessage(deleted.code));
  return false;
}
