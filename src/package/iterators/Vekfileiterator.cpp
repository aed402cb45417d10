#include "iterators/Vekfileiterator.h"

#include <algorithm>

#include "base/WindowsPath.h"
#include "coreapi/Vekfilesets.h"
#include "coreapi/Vekfolderwalk.h"
#include "coreapi/Vekutils.h"
#include "platform/FileAttributes.h"
#include "platform/Finder.h"
#include "platform/Platform.h"

namespace {

constexpr int32_t kKey = 0;  // the specification or the file set's name, by the mode
constexpr std::string_view kLineBreak = "\r\n";

constexpr std::string_view kHidden[] = {"FileIndex", "FileCount"};

}  // namespace

const ActionClass TCustomFileIterator::kClass{
    .inherited = &TVekBaseIterator::kClass,
    .className = "TCustomFileIterator",
    .actionName = "File Iterator",
    .helpTopicID = 950,
    .quickHelpFilename = "Plugins\\FileIterator.html",
    .hiddenProperties = kHidden,
};

std::string TCustomFileIterator::GetDescriptionFormatString() const { return "File Iterator [ %s ]"; }

std::string TCustomFileIterator::GetDescriptionKeyValue(int32_t index) const {
  if (index != kKey) return {};
  return useFileSet_ ? fileSetName_ : fileSpec_;
}

void TCustomFileIterator::SetDescriptionKeyValue(int32_t index, std::string_view value) {
  TVekBaseIterator::SetDescriptionKeyValue(index, value);
  if (index == kKey) (useFileSet_ ? fileSetName_ : fileSpec_) = value;
}

WideString TCustomFileIterator::FileSpec() const {
  return WideString(useFileSet_ ? fileSpec_ : GetDescriptionKeyValue(kKey));
}

void TCustomFileIterator::SetFileSpec(const WideString& value) {
  if (value == fileSpec_) return;
  if (useFileSet_) {
    fileSpec_ = value;
  } else {
    UpdateKeyValue(kKey, fileSpec_, value);
  }
}

std::string TCustomFileIterator::FileSetName() const {
  return useFileSet_ ? GetDescriptionKeyValue(kKey) : fileSetName_;
}

void TCustomFileIterator::SetFileSetName(std::string_view value) {
  if (value == fileSetName_) return;
  if (useFileSet_) {
    UpdateKeyValue(kKey, fileSetName_, value);
  } else {
    fileSetName_ = value;
  }
}

void TCustomFileIterator::SetUseFileSet(bool value) {
  useFileSet_ = value;
  // The description follows the mode.
  if (useFileSet_) {
    UpdateKeyValue(kKey, FileSpec(), FileSetName());
  } else {
    UpdateKeyValue(kKey, FileSetName(), FileSpec());
  }
}

void TCustomFileIterator::SetRecurse(bool value) {
  recurse_ = value;
  if (recurse_) includeFilePath_ = true;
}

void TCustomFileIterator::SetIncludeFilePath(bool value) {
  includeFilePath_ = value;
  if (!includeFilePath_) recurse_ = false;
}

bool TCustomFileIterator::Validate(IVekActionValidationError& errors) {
  if (!GetDescriptionKeyValue(kKey).empty()) return true;
  if (useFileSet_) {
    errors.AddError("FileSet", "FileSet name has not been set");
  } else {
    errors.AddError("File Spec", "File Spec has not been set");
  }
  return false;
}

void TCustomFileIterator::BeforeFirstIteration() {
  std::string spec;
  try {
    spec = ExpandExpression(FileSpec());
  } catch (const std::exception& error) {
    throw EIteratorException(std::string("Error Setting File Spec : ") + error.what());
  }
  if (useFileSet_) {
    ReadFileSet();
  } else {
    SearchFiles(spec);
  }
}

void TCustomFileIterator::SearchFiles(const std::string& spec) {
  try {
    SendMessage("Searching for Files...");
    files_.clear();
    const std::string_view mask = NamePart(spec);
    WalkFolders(SearchedFolder(GetPlatform(), spec), recurse_,
                [&](const std::string& folder) { TakeMatches(folder, mask); });
    SendMessage("Found " + std::to_string(files_.size()) + " Files.");
    SendFileList();
    UpdateIterationCount();
  } catch (const std::exception& error) {
    throw EIteratorException(std::string("Error while searching for files : ") + error.what());
  }
}

void TCustomFileIterator::TakeMatches(const std::string& folder, std::string_view mask) {
  SysResult found;
  const auto search = GetPlatform().finder->Open(
      folder + std::string(mask), FindAnyFile ? FileAttribute::AnyFile : 0, FindDetail::Names, found);
  for (FoundEntry entry; search->Next(entry);) {
    files_.push_back(includeFilePath_ ? folder + entry.name : std::move(entry.name));
  }
  ReportUnreadable(folder, *search);
}

void TCustomFileIterator::ReadFileSet() {
  try {
    SendMessage("Retrieving fileset...");
    files_ = FileSetFiles(FileSetRefreshBefore);
    if (!includeFilePath_) {
      for (std::string& file : files_) file = NamePart(file);
    }
    SendMessage("File Set contents (" + std::to_string(files_.size()) + " files) :");
    SendFileList();
    UpdateIterationCount();
  } catch (const EIteratorException&) {
    throw;
  } catch (const std::exception& error) {
    throw EIteratorException(std::string("Error while evaluating fileset : ") + error.what());
  }
}

StringList TCustomFileIterator::FileSetFiles(bool refresh) {
  const std::string name = FileSetName();
  IVekFileSet* fileSet = FindFileSet(GetProjectObjectAPI(), name);
  if (!fileSet) throw EIteratorException(FileSetNotFound(name));
  if (refresh) {
    SendMessage("Refreshing fileset...");
    fileSet->Refresh();
  }
  return SplitAt(fileSet->GetFileList(kLineBreak), kLineBreak);
}

/// Takes over what has changed in the file set: files not yet visited that are gone from it go, new ones are
/// added. The full paths of the set are compared and added, whatever form the list began with.
void TCustomFileIterator::MergeFileSet() {
  const StringList current = FileSetFiles(FileSetRefreshAfterEach);
  const size_t removals = RemoveUnvisited(NameSet(current.begin(), current.end()));
  if (removals > 0) SendMessage(std::to_string(removals) + " file(s) no longer appear in the fileset.");
  const size_t additions = AddMissing(current);
  if (additions > 0) SendMessage(std::to_string(additions) + " new file(s) found in the fileset.");
  UpdateIterationCount();
}

size_t TCustomFileIterator::RemoveUnvisited(const NameSet& current) {
  const auto isGone = [&current](const std::string& file) { return !current.contains(file); };
  const auto gone = std::remove_if(files_.begin() + GetCurrentIteration(), files_.end(), isGone);
  const auto removals = static_cast<size_t>(files_.end() - gone);
  files_.erase(gone, files_.end());
  return removals;
}

size_t TCustomFileIterator::AddMissing(const StringList& current) {
  NameSet known(files_.begin(), files_.end());
  StringList additions;
  for (const std::string& file : current) {
    if (known.insert(file).second) additions.push_back(file);
  }
  files_.insert(files_.end(), additions.begin(), additions.end());
  return additions.size();
}

Variant TCustomFileIterator::GetCurrentValue() { return files_[static_cast<size_t>(FileIndex())]; }

void TCustomFileIterator::AfterEachIteration() {
  TVekBaseIterator::AfterEachIteration();
  if (FileSetRefreshAfterEach) MergeFileSet();
}

void TCustomFileIterator::AfterLastIteration() {
  TVekBaseIterator::AfterLastIteration();
  if (FileSetRefreshAfterEach) {
    SendMessage("Final file list which was iterated (after all intermediate updates):");
    SendFileList();
    SendMessage("(" + std::to_string(files_.size()) + " files.)");
  }
  files_.clear();
}

void TCustomFileIterator::SendFileList() const { SendMessage(JoinLines(files_, kLineBreak)); }
