#include "fileops/VekFileAttrib.h"

#include <algorithm>

#include "base/WindowsPath.h"
#include "coreapi/Vekfolderwalk.h"
#include "coreapi/Vekutils.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Platform.h"

namespace {

constexpr std::string_view kAliases[] = {
    "[Attributes]",       "ReadOnly=Read Only", "SystemFile=System File",      "Archive=Archive",
    "Hidden=Hidden File", "[Behaviour]",        "Recurse=Recurse Directories", "LogAllFiles=Log All Files",
};

constexpr std::string_view kHelp[] = {
    "ReadOnly=Determines what to do to the Read Only flag",
    "SystemFile=Determines what to do to the System File flag",
    "Archive=Determines what to do to the Archive flag",
    "Hidden=Determines what to do to the Hidden flag",
    "Recurse=Recurse Sub Directories",
    "LogAllFiles=Log All Files processed to the output panel.",
    "FileSpec=The file specification of the files to process. Wildcards (*, ?) may be used",
};

struct Setting {
  TAttributeSetting TCustomSetFileAttributesAction::*setting;
  uint32_t bit;
};

constexpr Setting kSettings[] = {
    {&TCustomSetFileAttributesAction::ReadOnly, FileAttribute::ReadOnly},
    {&TCustomSetFileAttributesAction::Archive, FileAttribute::Archive},
    {&TCustomSetFileAttributesAction::SystemFile, FileAttribute::System},
    {&TCustomSetFileAttributesAction::Hidden, FileAttribute::Hidden},
};

constexpr std::string_view kNothingToDo = "Nothing to do!";

}  // namespace

const ActionClass TCustomSetFileAttributesAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomSetFileAttributesAction",
    .actionName = "Set File Attributes",
    .helpTopicID = 556,
    .quickHelpFilename = "Plugins\\SetFileAttributes.html",
    .aliases = kAliases,
    .help = kHelp,
    .raises = true,
};

bool TCustomSetFileAttributesAction::Validate(IVekActionValidationError& errors) {
  if (!FileSpec.empty()) return true;
  errors.AddError("File Spec", "The file spec has not been set");
  return false;
}

bool TCustomSetFileAttributesAction::Execute() {
  const auto message = CreateStatusMessage();
  const auto fail = [&](std::string_view line) {
    message->AddLine(line);
    SendStatusMessage(message);
    return false;
  };
  const auto isNone = [this](const Setting& row) { return this->*row.setting == TAttributeSetting::asNone; };
  if (std::ranges::all_of(kSettings, isNone)) return fail(kNothingToDo);

  std::string spec;
  try {
    spec = ExpandExpression(FileSpec, true);
  } catch (const std::exception& error) {
    return fail(std::string("Error processing File Spec : ") + error.what());
  }
  if (spec.empty()) return fail(kNothingToDo);

  WalkFolders(SearchedFolder(GetPlatform(), spec), Recurse,
              [&](const std::string& folder) { ProcessFiles(*message, folder, NamePart(spec)); });
  SendStatusMessage(message);
  return true;
}

/// Processes the matches of one folder; without wildcards one entry at most.
void TCustomSetFileAttributesAction::ProcessFiles(IVekActionLogMessage& message, const std::string& folder,
                                                  std::string_view mask) {
  SysResult found;
  const auto search =
      GetPlatform().finder->Open(folder + std::string(mask), FileAttribute::AnyFile, FindDetail::All, found);
  std::string path = folder;
  for (FoundEntry match; search->Next(match) && !StopSignalled();) {
    if ((match.attributes & FileAttribute::Directory) == 0) {
      path.replace(folder.size(), std::string::npos, match.name);
      ProcessFile(message, path, match.attributes);
    }
    if (!HasWildcards(mask)) break;
  }
  ReportUnreadable(folder, *search);
}

/// Applies the settings to what the search has found; written also when nothing changes.
void TCustomSetFileAttributesAction::ProcessFile(IVekActionLogMessage& message, const std::string& path,
                                                 uint32_t attributes) const {
  for (const auto& [setting, bit] : kSettings) {
    if (this->*setting == TAttributeSetting::asSet) attributes |= bit;
    if (this->*setting == TAttributeSetting::asClear) attributes &= ~bit;
  }
  const SysResult written = GetPlatform().entries->SetAttributes(path, attributes);
  if (!written) {
    CountError();
    message.AddLine("Error Processed File : " + SysErrorMessage(written.code));
  } else if (LogAllFiles) {
    message.AddLine("Processed File : " + path);
  }
}
