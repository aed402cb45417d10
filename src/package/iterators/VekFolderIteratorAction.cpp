#include "iterators/VekFolderIteratorAction.h"

#include "coreapi/Vekutils.h"
#include "platform/FileAttributes.h"
#include "platform/Platform.h"

const ActionClass TCustomFolderIterator::kClass{
    .inherited = &TVekBaseIterator::kClass,
    .className = "TCustomFolderIterator",
    .actionName = "Folder Iterator",
    .helpTopicID = 3210,
    .quickHelpFilename = "Plugins\\FolderIterator.html",
};

void TCustomFolderIterator::SetRecurse(bool value) {
  recurse_ = value;
  if (recurse_) includeFolderPath_ = true;
}

void TCustomFolderIterator::SetIncludeFolderPath(bool value) {
  includeFolderPath_ = value;
  if (!includeFolderPath_) recurse_ = false;
}

bool TCustomFolderIterator::Validate(IVekActionValidationError& errors) {
  if (!StartingFolder.empty()) return true;
  errors.AddError("Starting Folder", "A starting folder has not been set");
  return false;
}

void TCustomFolderIterator::BeforeFirstIteration() {
  stopRequested_ = false;
  std::string startingFolder;
  if (!TryExpandExpression("Starting Folder", StartingFolder, startingFolder, true)) return;
  try {
    SearchFolders(startingFolder);
  } catch (const EIteratorException&) {
    throw;
  } catch (const std::exception& error) {
    throw EIteratorException(std::string("Error while searching for folders : ") + error.what());
  }
}

void TCustomFolderIterator::SearchFolders(const std::string& startingFolder) {
  SendMessage("Searching for Folders...");
  folders_.clear();
  TFolderWalk walk(*GetPlatform().entries, *GetPlatform().finder, GetFolderLinks(),
                   [this](std::string_view folder, Win32Error code) { ReportUnreadable(folder, code); });
  Search(walk, SearchedFolder(GetPlatform(), AsFolder(GetPlatform(), startingFolder)));
  SendMessage("Found " + std::to_string(folders_.size()) + " Folders");
  SendMessage(JoinLines(folders_, "\r\n"));
  SetIterationCount(static_cast<int32_t>(folders_.size()));
}

/// Each sub-folder is followed at once by all that is below it.
void TCustomFolderIterator::Search(TFolderWalk& walk, const std::string& folder) {
  walk.ForEachFound(folder, FileAttribute::Directory, [&](const std::string& name, bool mayEnter) {
    if (StopSignalled()) throw EIteratorException("Stopping folder search.");
    folders_.push_back(includeFolderPath_ ? folder + name : name);
    if (recurse_ && mayEnter) Search(walk, AsFolder(GetPlatform(), folder + name));
    return true;
  });
}

/// A stop that was signalled once holds until the loop ends.
bool TCustomFolderIterator::StopSignalled() {
  stopRequested_ = TVekBaseIterator::StopSignalled() || stopRequested_;
  return stopRequested_;
}

Variant TCustomFolderIterator::GetCurrentValue() {
  return folders_[static_cast<size_t>(GetCurrentIteration()) - 1];
}

void TCustomFolderIterator::AfterLastIteration() {
  TVekBaseIterator::AfterLastIteration();
  folders_.clear();
  stopRequested_ = false;
}
