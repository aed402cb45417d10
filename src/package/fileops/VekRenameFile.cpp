#include "fileops/VekRenameFile.h"

#include "base/WindowsPath.h"
#include "coreapi/Vekutils.h"
#include "platform/Entries.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Platform.h"

namespace {

/// A text before the last dot of its name, and after it; without a dot there is no extension.
struct NameParts {
  explicit NameParts(std::string_view text) : name(text) {
    const size_t dot = NamePart(text).rfind('.');
    if (dot == std::string_view::npos) return;
    name = text.substr(0, FolderPart(text).size() + dot);
    extension = text.substr(name.size() + 1);
  }
  std::string_view name, extension;
};

/// Appends an entry's new name to what the names before have left. Only a "*" for the name starts afresh.
void GetNewFileName(std::string_view found, std::string_view target, std::string& newName) {
  const NameParts pattern(target);
  if (pattern.name == "*") {
    newName = NameParts(found).name;
  } else {
    newName += pattern.name;
  }
  if (pattern.extension == "*") {
    // From the first dot, though the name ends at the last; a name without a dot comes whole.
    const size_t dot = found.find('.');
    newName += dot == std::string_view::npos ? found : found.substr(dot);
  } else {
    newName.append(1, '.').append(pattern.extension);
  }
}

}  // namespace

const ActionClass TCustomRenameFilesAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomRenameFilesAction",
    .actionName = "Rename File(s)",
};

bool TCustomRenameFilesAction::Execute() {
  try {
    const std::string spec = ExpandExpression(SourceSpec);
    const std::string target = ExpandExpression(TargetSpec);
    if (MayRemoveMatches(spec)) RenameMatches(spec, target);
  } catch (const std::exception& error) {
    SendStatusMessage({error.what()});
  }
  return false;
}

void TCustomRenameFilesAction::RenameMatches(const std::string& spec, const std::string& target) const {
  const Platform& platform = GetPlatform();
  const std::string folder = SearchedFolder(platform, spec);
  SysResult found;
  const auto search = platform.finder->Open(spec, FileAttribute::AnyFile, FindDetail::Names, found);
  std::string newName;  // kept from entry to entry
  for (FoundEntry entry; search->Next(entry);) {
    GetNewFileName(entry.name, target, newName);
    // The folder itself and the one above it add to the name like any entry, but stay where they are.
    const bool isDots = entry.name == "." || entry.name == "..";
    if (!isDots) platform.entries->Move(folder + entry.name, folder + newName, 0);
  }
  ReportUnreadable(folder, *search);
}
